#include "robot.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <exception>

namespace quillset::tour {

namespace {

// The window that takes the keys: the modal dialog if there is one, else the main window. Without a window
// manager nobody gives it the focus, so it is asked for.
QWindow* focusWindow() {
    QWidget* window = QApplication::activeModalWidget();
    for (QWidget* const candidate : QApplication::topLevelWidgets())
        if (window == nullptr && candidate->isVisible() &&
            candidate->objectName() == QLatin1String("MDIForm1"))
            window = candidate;
    if (window == nullptr)
        throw TourError("no window is there to take keys");
    if (!window->isActiveWindow()) {
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window))
            throw TourError("a window does not become active");
    }
    return window->windowHandle();
}

QString withoutAccessKey(QString text) {
    return text.remove(u'&');
}

} // namespace

Robot::Robot(QString folder)
    : folder_(std::move(folder)) {
    QDir().mkpath(folder_);
}

void Robot::settle() {
    QTest::qWait(60);
}

void Robot::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(focusWindow(), key, modifiers);
    settle();
}

void Robot::type(const QString& text) {
    for (const QChar character : text)
        QTest::keyClick(focusWindow(), character.toLatin1());
    settle();
}

void Robot::typeInto(QWidget* field, const QString& text) {
    field->window()->activateWindow();
    if (!QTest::qWaitForWindowActive(field->window()))
        throw TourError("a window does not become active");
    click(field);
    for (const QChar character : text)
        QTest::keyClick(field->window()->windowHandle(), character.toLatin1());
    settle();
}

void Robot::click(QWidget* widget, const QPoint& place, Qt::MouseButton button) {
    QTest::mouseClick(widget->window()->windowHandle(), button, Qt::NoModifier,
                      widget->mapTo(widget->window(), place));
    settle();
}

void Robot::click(QWidget* widget) {
    click(widget, widget->rect().center());
}

void Robot::doubleClick(QWidget* widget, const QPoint& place) {
    QTest::mouseDClick(widget->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                       widget->mapTo(widget->window(), place));
    settle();
}

void Robot::chooseCommand(QWidget* window, const char* menu, const char* command) {
    auto* const bar = window->findChild<QMenuBar*>();
    auto* const popup = window->findChild<QMenu*>(QLatin1String(menu));
    click(bar, bar->actionGeometry(popup->menuAction()).center());
    waitFor([&] { return popup->isVisible(); }, QStringLiteral("menu %1").arg(QLatin1String(menu)));
    QAction* const action = window->findChild<QAction*>(QLatin1String(command));
    if (!action->isEnabled())
        throw TourError(std::string("the command is disabled: ") + command);
    click(popup, popup->actionGeometry(action).center());
}

void Robot::withDialogs(const std::function<void()>& trigger, const std::vector<DialogAnswer>& answers) {
    QPointer<QWidget> last = QApplication::activeModalWidget();
    std::size_t answered = 0;
    std::exception_ptr failure;
    QTimer timer;
    timer.setInterval(30);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == last || !dialog->isVisible() || answered == answers.size())
            return;
        // The compile log keeps the program busy until it can be closed; nothing would go on while it is
        // answered.
        if (const auto* const close = dialog->findChild<QWidget*>(QStringLiteral("cmdClose"));
            close != nullptr && !close->isEnabled())
            return;
        last = dialog;
        timer.stop();
        // An exception may not cross the event loop: it is carried around it.
        try {
            settle();
            answers[answered++](dialog);
        } catch (const TourError&) {
            failure = std::current_exception();
            answered = answers.size();
            dialog->close();
        }
        timer.start();
    });
    timer.start();
    trigger();
    const bool complete = QTest::qWaitFor([&] { return answered == answers.size(); }, 10000);
    if (failure)
        std::rethrow_exception(failure);
    if (!complete)
        throw TourError("an expected dialog did not come up");
    settle();
}

void Robot::chooseFile(QWidget* dialog, const QString& path) {
    auto* const edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (edit == nullptr)
        throw TourError("not a file dialog");
    edit->setFocus();
    edit->selectAll();
    type(path);
    // The list of completions would take the Return for itself.
    if (edit->completer() != nullptr)
        edit->completer()->popup()->hide();
    key(Qt::Key_Return);
}

void Robot::pressButton(QWidget* dialog, const QString& text) {
    for (QAbstractButton* const button : dialog->findChildren<QAbstractButton*>())
        if (button->isVisible() && withoutAccessKey(button->text()) == text)
            return click(button);
    throw TourError("no button " + text.toStdString());
}

void Robot::waitFor(const std::function<bool()>& condition, const QString& what) {
    if (!QTest::qWaitFor(condition, 10000))
        throw TourError("waited in vain for " + what.toStdString());
}

int Robot::coloursIn(const QWidget& widget) const {
    const QPoint place = widget.mapToGlobal(QPoint());
    const QImage seen = QGuiApplication::primaryScreen()
                            ->grabWindow(0, place.x(), place.y(), widget.width(), widget.height())
                            .toImage()
                            .convertToFormat(QImage::Format_RGB32);
    QSet<QRgb> colours;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x)
            colours.insert(seen.pixel(x, y));
    return static_cast<int>(colours.size());
}

void Robot::picture(const QString& name) {
    settle();
    QPixmap picture;
    const QString platform = QGuiApplication::platformName();
    if (platform != QLatin1String("offscreen") && platform != QLatin1String("minimal"))
        picture = QGuiApplication::primaryScreen()->grabWindow(0);
    else if (QWidget* const window = QApplication::activeWindow())
        picture = window->grab();
    const QString path =
        QStringLiteral("%1/%2-%3.png").arg(folder_).arg(++count_, 2, 10, QLatin1Char('0')).arg(name);
    if (picture.isNull() || !picture.save(path))
        throw TourError("cannot write the picture " + path.toStdString());
}

QWidget* Robot::find(const char* objectName) const {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String(objectName) && window->isVisible())
            return window;
        for (QWidget* const child : window->findChildren<QWidget*>(QLatin1String(objectName)))
            if (child->isVisible())
                return child;
    }
    throw TourError(std::string("nothing visible is called ") + objectName);
}

} // namespace quillset::tour
