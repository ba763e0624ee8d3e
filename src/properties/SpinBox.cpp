#include "properties/SpinBox.h"

#include "properties/line_editor.h"

#include <QEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace quillset {

namespace {

constexpr std::uint32_t systemColour = 0x80000000U;

/// The colour that a stored number means, in the palette's light or dark scheme.
QColor colourOf(std::uint32_t colour, const QPalette& palette) {
    switch (colour) {
    case systemColour + 5:
        return palette.color(QPalette::Base);
    case systemColour + 8:
        return palette.color(QPalette::Text);
    case systemColour + 15:
        return palette.color(QPalette::Button);
    case systemColour + 18:
        return palette.color(QPalette::ButtonText);
    default:
        break;
    }
    if (colour >= systemColour)
        return palette.color(QPalette::Window);
    return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8) & 0xFFU),
            static_cast<int>((colour >> 16) & 0xFFU)};
}

} // namespace

SpinBox::SpinBox(QWidget* parent)
    : QWidget(parent)
    , txtSpin_(new LineEditor(this))
    , scrSpin_(new QScrollBar(Qt::Vertical, this))
    , modelChanged_(model_.changed.connect([this] {
        showModel();
        emit Change();
    })) {
    txtSpin_->setObjectName(QStringLiteral("txtSpin"));
    scrSpin_->setObjectName(QStringLiteral("scrSpin"));
    scrSpin_->setSingleStep(1);
    scrSpin_->setPageStep(1);
    setFocusProxy(txtSpin_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(txtSpin_, &QLineEdit::textChanged, this,
            [this](const QString& text) { model_.setText(text.toStdString()); });
    connect(scrSpin_, &QScrollBar::valueChanged, this,
            [this](int position) { model_.setPosition(position); });
    connect(txtSpin_, &LineEditor::keyDown, this, &SpinBox::KeyDown);
    connect(txtSpin_, &LineEditor::keyPress, this, &SpinBox::KeyPress);
    connect(txtSpin_, &LineEditor::keyDown, this, &SpinBox::stepByKey);
    connect(txtSpin_, &LineEditor::focusGained, txtSpin_, &QLineEdit::selectAll);
    connect(txtSpin_, &LineEditor::focusLost, this, [this] {
        settle();
        emit focusLost();
    });
    showModel();
}

void SpinBox::showModel() {
    const QSignalBlocker quiet(scrSpin_);
    scrSpin_->setRange(std::min(-max(), -min()), std::max(-max(), -min()));
    scrSpin_->setValue(model_.position());
    const QSignalBlocker alsoQuiet(txtSpin_);
    if (const QString shown = text(); txtSpin_->text() != shown)
        txtSpin_->setText(shown);
}

void SpinBox::stepByKey(int& keyCode, int shift) {
    if (shift != 0 || (keyCode != Qt::Key_Up && keyCode != Qt::Key_Down))
        return;
    scrSpin_->triggerAction(keyCode == Qt::Key_Up ? QAbstractSlider::SliderSingleStepSub
                                                  : QAbstractSlider::SliderSingleStepAdd);
    keyCode = 0;
}

void SpinBox::setBackColor(std::uint32_t colour) {
    backColor_ = colour;
    applyColours();
    emit propertyChanged("BackColor");
}

void SpinBox::setForeColor(std::uint32_t colour) {
    foreColor_ = colour;
    applyColours();
    emit propertyChanged("ForeColor");
}

void SpinBox::applyColours() {
    const SpinSettings defaults;
    QPalette colours; // empty: everything from the surroundings
    if (backColor_ != defaults.backColor)
        colours.setColor(QPalette::Base, colourOf(backColor_, palette()));
    if (foreColor_ != defaults.foreColor)
        colours.setColor(QPalette::Text, colourOf(foreColor_, palette()));
    txtSpin_->setPalette(colours);
}

void SpinBox::setBorderStyle(int style) {
    borderStyle_ = style;
    txtSpin_->setFrame(style != 0);
    layOut();
    emit propertyChanged("BorderStyle");
}

int SpinBox::largeChange() const {
    return scrSpin_->pageStep();
}

void SpinBox::setLargeChange(int step) {
    scrSpin_->setPageStep(std::max(step, 1));
    emit propertyChanged("LargeChange");
}

int SpinBox::smallChange() const {
    return scrSpin_->singleStep();
}

void SpinBox::setSmallChange(int step) {
    scrSpin_->setSingleStep(std::max(step, 1));
    emit propertyChanged("SmallChange");
}

void SpinBox::setMax(int max) {
    model_.setMax(max);
    showModel();
    emit propertyChanged("Max");
}

void SpinBox::setMin(int min) {
    model_.setMin(min);
    showModel();
    emit propertyChanged("Min");
}

QString SpinBox::text() const {
    return QString::fromStdString(model_.text());
}

void SpinBox::setText(const QString& text) {
    model_.setText(text.toStdString());
    emit propertyChanged("Text");
}

void SpinBox::setValue(int value) {
    model_.setValue(value);
    emit propertyChanged("Value");
}

void SpinBox::readProperties(PropertyBag& bag) {
    const SpinSettings settings = readSpinSettings(bag);
    setBackColor(settings.backColor);
    setForeColor(settings.foreColor);
    setEnabled(settings.enabled);
    QFont stored;
    if (!settings.font.empty() && stored.fromString(QString::fromStdString(settings.font)))
        setFont(stored);
    setBorderStyle(settings.borderStyle);
    setLargeChange(settings.largeChange);
    setMax(settings.max);
    setMin(settings.min);
    setSmallChange(settings.smallChange);
    setText(QString::fromStdString(settings.text));
    model_.setPosition(settings.position);
    emit propertyChanged("Value");
}

void SpinBox::writeProperties(PropertyBag& bag) const {
    SpinSettings settings;
    settings.backColor = backColor_;
    settings.foreColor = foreColor_;
    settings.enabled = isEnabledTo(parentWidget());
    if (testAttribute(Qt::WA_SetFont))
        settings.font = font().toString().toStdString();
    settings.borderStyle = borderStyle_;
    settings.largeChange = largeChange();
    settings.max = max();
    settings.min = min();
    settings.smallChange = smallChange();
    settings.text = model_.text();
    settings.position = model_.position();
    writeSpinSettings(bag, settings);
}

QSize SpinBox::sizeHint() const {
    return {txtSpin_->sizeHint().width(), txtSpin_->sizeHint().height()};
}

QSize SpinBox::minimumSizeHint() const {
    return {2 * scrSpin_->sizeHint().width(), txtSpin_->sizeHint().height()};
}

void SpinBox::resizeEvent(QResizeEvent*) {
    layOut();
}

void SpinBox::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
        layOut();
        emit propertyChanged("Font");
        break;
    case QEvent::EnabledChange:
        emit propertyChanged("Enabled");
        break;
    case QEvent::StyleChange:
        layOut();
        break;
    default:
        break;
    }
}

void SpinBox::layOut() {
    const int lineHeight = txtSpin_->sizeHint().height();
    const int barWidth = scrSpin_->sizeHint().width();
    setFixedHeight(lineHeight);
    txtSpin_->setGeometry(0, 0, width() - barWidth, lineHeight);
    scrSpin_->setGeometry(width() - barWidth, 0, barWidth, lineHeight);
}

} // namespace quillset
