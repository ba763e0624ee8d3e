#include "properties/cell_editors.h"

#include "base/number_text.h"
#include "properties/SpinBox.h"
#include "properties/line_editor.h"
#include "properties/list_editor.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillset {

namespace {

constexpr int shiftOnly = 1;

QStringList textsOf(std::span<const std::string_view> items) {
    QStringList texts;
    for (const std::string_view item : items)
        texts += QString::fromUtf8(item.data(), static_cast<qsizetype>(item.size()));
    return texts;
}

} // namespace

CellEditors::CellEditors(QWidget& viewport, PropertyEditor& editor)
    : QObject(&viewport)
    , editor_(editor)
    , txt_prop_(new LineEditor(&viewport))
    , cmb_prop_(new ListEditor(&viewport))
    , spn_prop_(new SpinBox(&viewport)) {
    txt_prop_->setObjectName(QStringLiteral("txt_prop"));
    cmb_prop_->setObjectName(QStringLiteral("cmb_prop"));
    spn_prop_->setObjectName(QStringLiteral("spn_prop"));
    for (QWidget* widget : std::initializer_list<QWidget*>{txt_prop_, cmb_prop_, spn_prop_})
        widget->hide();
    for (LineEditor* box : {txt_prop_, cmb_prop_->textBox(), spn_prop_->textBox()})
        connectKeys(box);
    connect(txt_prop_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (open_ == txt_prop_ && !filling_)
            editor_.textEdited(text.toStdString());
    });
    connect(cmb_prop_, &QComboBox::editTextChanged, this, [this](const QString& text) {
        if (open_ == cmb_prop_ && !filling_)
            editor_.textEdited(text.toStdString());
    });
    connect(cmb_prop_, &ListEditor::dropDown, this, [this] { editor_.listOpened(); });
    connect(spn_prop_, &SpinBox::Change, this, [this] {
        if (open_ == spn_prop_ && !filling_)
            editor_.spinChanged(spn_prop_->value(), spn_prop_->text().toStdString());
    });
    const auto commit = [this] { editor_.setNewData(); };
    connect(txt_prop_, &LineEditor::focusLost, this, commit);
    connect(cmb_prop_, &ListEditor::focusLost, this, commit);
    connect(spn_prop_, &SpinBox::focusLost, this, commit);
}

void CellEditors::connectKeys(LineEditor* box) {
    connect(box, &LineEditor::keyDown, this, [this](int&, int shift) { shiftAlone_ = shift == shiftOnly; });
    connect(box, &LineEditor::keyPress, this, [this](int& keyAscii) {
        if (editor_.processKeyPress(keyAscii, shiftAlone_))
            keyAscii = 0;
    });
}

void CellEditors::open(const EditSession& session, const QRect& cell) {
    const QScopedValueRollback filling(filling_, true);
    const QString name = QString::fromStdString(session.name);
    LineEditor* box = txt_prop_;
    switch (session.editor.kind) {
    case EditorKind::text:
        open_ = txt_prop_;
        txt_prop_->setText(QString::fromStdString(session.text));
        break;
    case EditorKind::list:
        open_ = cmb_prop_;
        box = cmb_prop_->textBox();
        cmb_prop_->fill(textsOf(session.editor.items), QString::fromStdString(session.text));
        break;
    case EditorKind::spin:
        open_ = spn_prop_;
        box = spn_prop_->textBox();
        fillSpin(session);
        break;
    }
    box->setCharacterFilter([name = session.name](char32_t c) { return acceptsCharacter(name, c); });
    box->setAccessibleName(name);
    place(cell);
    open_->show();
    open_->raise();
    open_->setFocus(Qt::OtherFocusReason);
    box->selectAll();
}

void CellEditors::fillSpin(const EditSession& session) {
    const SpinLimits limits = session.editor.limits;
    spn_prop_->setMax(limits.maximum);
    spn_prop_->setMin(limits.minimum);
    // What the cell holds may be anything, and stays there until the user changes it.
    const double number = std::clamp(leadingNumber(session.text), static_cast<double>(limits.minimum),
                                     static_cast<double>(limits.maximum));
    spn_prop_->setValue(static_cast<int>(std::nearbyint(number)));
    spn_prop_->setText(QString::number(spn_prop_->value()));
}

void CellEditors::close() {
    if (QWidget* const closed = std::exchange(open_, nullptr))
        closed->hide();
}

void CellEditors::place(const QRect& cell) {
    if (open_ == spn_prop_)
        open_->setGeometry(cell.x(), cell.y(), cell.width(), spn_prop_->sizeHint().height());
    else if (open_)
        open_->setGeometry(cell);
}

void CellEditors::replaceText(const QString& text) {
    if (open_ == txt_prop_)
        txt_prop_->setText(text);
}

void CellEditors::settle() {
    if (open_ == spn_prop_)
        spn_prop_->settle();
}

bool CellEditors::hasFocus() const {
    return open_ && (open_->hasFocus() || (open_->focusProxy() && open_->focusProxy()->hasFocus()));
}

int CellEditors::rowHeight() const {
    return std::max(
        {txt_prop_->sizeHint().height(), cmb_prop_->sizeHint().height(), spn_prop_->sizeHint().height()});
}

} // namespace quillset
