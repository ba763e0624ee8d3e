#pragma once

#include "properties/spin_model.h"
#include "properties/spin_settings.h"

#include <QWidget>

#include <functional>

class QScrollBar;

namespace quillset {

class LineEditor;

/// A control for a whole number within limits: the text box `txtSpin` and, at its right, the vertical scroll
/// bar `scrSpin`. One text line high. The arrow keys Up and Down step like the arrows of the scroll bar.
///
/// Setters throw RuntimeError (overflow) for a number beyond 16 bits; a value is kept within the limits.
class SpinBox : public QWidget {
    Q_OBJECT
public:
    explicit SpinBox(QWidget* parent = nullptr);

    /// 0x00BBGGRR, or 0x80000000 + the number of a system colour.
    [[nodiscard]] std::uint32_t backColor() const { return backColor_; }
    void setBackColor(std::uint32_t colour);
    [[nodiscard]] std::uint32_t foreColor() const { return foreColor_; }
    void setForeColor(std::uint32_t colour);
    /// 0 none, else a single border.
    [[nodiscard]] int borderStyle() const { return borderStyle_; }
    void setBorderStyle(int style);
    /// Steps of the scroll bar by page and by arrow, at least 1.
    [[nodiscard]] int largeChange() const;
    void setLargeChange(int step);
    [[nodiscard]] int smallChange() const;
    void setSmallChange(int step);
    [[nodiscard]] int max() const { return model_.max(); }
    void setMax(int max);
    [[nodiscard]] int min() const { return model_.min(); }
    void setMin(int min);
    [[nodiscard]] QString text() const;
    void setText(const QString& text);
    [[nodiscard]] int value() const { return model_.value(); }
    void setValue(int value);

    /// Stored settings; "Enabled" and "Font" are the widget's own.
    void readProperties(PropertyBag& bag);
    void writeProperties(PropertyBag& bag) const;

    [[nodiscard]] LineEditor* textBox() const { return txtSpin_; }
    /// Makes the typed number the value, as leaving the text box does.
    void settle() { model_.settle(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// After every change of the text box's text.
    void Change();
    /// The text box's own key events; a receiver may change the code, or set it to 0 to swallow the key.
    void KeyPress(int& keyAscii);
    void KeyDown(int& keyCode, int shift);
    /// The text box was left for another control.
    void focusLost();
    /// A setter was used; the name under which the property is stored.
    void propertyChanged(const char* name);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void showModel();
    void stepByKey(int& keyCode, int shift);
    void applyColours();

    SpinModel model_;
    LineEditor* txtSpin_;
    QScrollBar* scrSpin_;
    std::uint32_t backColor_ = SpinSettings().backColor;
    std::uint32_t foreColor_ = SpinSettings().foreColor;
    int borderStyle_ = SpinSettings().borderStyle;
    Connection modelChanged_;
};

} // namespace quillset
