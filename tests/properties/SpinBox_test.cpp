#include "properties/SpinBox.h"
#include "properties/line_editor.h"
#include "properties/map_bag.h"

#include <QScrollBar>
#include <QTest>

using namespace quillset;

namespace {

struct SpinWindow {
    SpinWindow() {
        host.resize(300, 200);
        spin->setGeometry(0, 0, 120, 10);
        other->setGeometry(150, 0, 100, 30);
        host.show();
        host.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&host));
        other->setFocus();
    }
    [[nodiscard]] LineEditor& box() const { return *spin->textBox(); }
    [[nodiscard]] QScrollBar& bar() const { return *spin->findChild<QScrollBar*>(QStringLiteral("scrSpin")); }
    void type(const char* characters) {
        for (; *characters; ++characters)
            QTest::keyClick(host.windowHandle(), *characters);
    }

    QWidget host;
    SpinBox* spin = new SpinBox(&host);
    QLineEdit* other = new QLineEdit(&host);
};

} // namespace

class SpinBoxTest : public QObject {
    Q_OBJECT
private slots:
    void focusSelectsTheText();
    void arrowsStepAndStop();
    void keyEventsArePassedOnByReference();
    void settingsSurvive();
};

void SpinBoxTest::focusSelectsTheText() {
    SpinWindow w;
    w.spin->setValue(12);
    w.spin->setFocus();
    QCOMPARE(w.box().selectedText(), QStringLiteral("12"));
    w.type("7");
    QCOMPARE(w.spin->value(), 7);
    w.box().setCursorPosition(0);
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&w.box(), &back); // the user comes back from another program
    QCOMPARE(w.box().selectedText(), QString());
}

void SpinBoxTest::arrowsStepAndStop() {
    SpinWindow w;
    w.spin->setMax(10);
    w.spin->setSmallChange(4);
    w.spin->setValue(3);
    const QPoint upper(w.bar().width() / 2, 2);
    const QPoint lower(w.bar().width() / 2, w.bar().height() - 3);
    QTest::mouseClick(&w.bar(), Qt::LeftButton, {}, upper);
    QCOMPARE(w.spin->value(), 7);
    QTest::mouseClick(&w.bar(), Qt::LeftButton, {}, upper);
    QCOMPARE(w.spin->text(), QStringLiteral("10"));
    w.spin->setValue(3);
    QTest::mouseClick(&w.bar(), Qt::LeftButton, {}, lower);
    QCOMPARE(w.spin->value(), 0);
    w.spin->setFocus();
    QTest::keyClick(w.host.windowHandle(), Qt::Key_Up);
    QCOMPARE(w.box().text(), QStringLiteral("4"));
}

void SpinBoxTest::keyEventsArePassedOnByReference() {
    SpinWindow w;
    w.spin->setFocus();
    std::vector<int> shifts;
    connect(w.spin, &SpinBox::KeyDown, w.spin, [&](int& keyCode, int shift) {
        shifts.push_back(shift);
        if (keyCode == Qt::Key_8)
            keyCode = 0;
    });
    connect(w.spin, &SpinBox::KeyPress, w.spin, [](int& keyAscii) {
        if (keyAscii == '1')
            keyAscii = '2';
        else if (keyAscii == '9')
            keyAscii = 0;
    });
    w.type("1983");
    QCOMPARE(w.spin->text(), QStringLiteral("23"));
    shifts.clear();
    QTest::keyClick(w.host.windowHandle(), Qt::Key_Left, Qt::ShiftModifier | Qt::AltModifier);
    QCOMPARE(shifts.back(), 1 + 4);
}

void SpinBoxTest::settingsSurvive() {
    SpinWindow w;
    w.spin->setMax(999);
    w.spin->setMin(3);
    w.spin->setLargeChange(10);
    w.spin->setBorderStyle(0);
    w.spin->setBackColor(0x000080FFU);
    w.spin->setEnabled(false);
    w.spin->setValue(5);
    test::MapBag bag;
    w.spin->writeProperties(bag);
    QCOMPARE(bag.texts["Value"], "-5");
    SpinBox other;
    other.readProperties(bag);
    QCOMPARE(other.value(), 5);
    QCOMPARE(other.text(), QStringLiteral("5"));
    QCOMPARE(other.textBox()->palette().color(QPalette::Base), QColor(255, 128, 0));
    test::MapBag again;
    other.writeProperties(again);
    QVERIFY(again.texts == bag.texts);
}

QTEST_MAIN(SpinBoxTest)
#include "SpinBox_test.moc"
