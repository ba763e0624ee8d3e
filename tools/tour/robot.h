#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillset::tour {

/// A step that did not lead where it should: the tour ends with a failure.
class TourError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Hands and eyes of the tour: key and mouse events that enter through the window system's queue, as a user's
/// do, and pictures of the screen.
class Robot {
public:
    /// Pictures go to `folder`, numbered in the order in which they are taken.
    explicit Robot(QString folder);

    /// A key to the window that has the focus.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    /// Clicks a field, in whatever window, and types into it.
    void typeInto(QWidget* field, const QString& text);
    void click(QWidget* widget, const QPoint& place, Qt::MouseButton button = Qt::LeftButton);
    void click(QWidget* widget);
    void doubleClick(QWidget* widget, const QPoint& place);

    /// Opens a menu of the menu bar and chooses one of its commands with the mouse.
    void chooseCommand(QWidget* window, const char* menu, const char* command);

    using DialogAnswer = std::function<void(QWidget* dialog)>;
    /// Runs `trigger`, which opens modal dialogs one after the other, and each answer as soon as its dialog
    /// is shown; an answer must close its dialog.
    void withDialogs(const std::function<void()>& trigger, const std::vector<DialogAnswer>& answers);
    /// Types a file name into a file dialog and confirms it.
    void chooseFile(QWidget* dialog, const QString& path);
    /// Presses the button of a message box with that text ("&" left out).
    void pressButton(QWidget* dialog, const QString& text);

    /// Processes events until the condition holds; TourError with `what` when it does not within ten seconds.
    void waitFor(const std::function<bool()>& condition, const QString& what);
    void settle();

    /// How many different colours a widget shows on the screen: many where there is a textured picture.
    [[nodiscard]] int coloursIn(const QWidget& widget) const;

    /// A picture of the whole screen (of the active window where the screen cannot be read).
    void picture(const QString& name);
    [[nodiscard]] int pictures() const { return count_; }

    /// The widget of that object name, in any window; TourError when there is none that is visible.
    [[nodiscard]] QWidget* find(const char* objectName) const;

private:
    QString folder_;
    int count_ = 0;
};

} // namespace quillset::tour
