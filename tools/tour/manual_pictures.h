#pragma once

#include "robot.h"

#include "shell/editor.h"

namespace quillset::tour {

/// Takes the pictures of the manual: each window once, with a small harbour as the scenery.
class ManualPictures {
public:
    /// `results` takes the scenery file and what is made of it, `pictures` the pictures.
    ManualPictures(Editor& editor, const QString& results, const QString& pictures);

    /// Start-up with its message that the simulator's module is missing; false when the program must end.
    [[nodiscard]] bool start();
    void run();

private:
    void openHarbour();
    void catalogue();
    void listMenu();
    void properties();
    void conversion();
    void compileLog();
    void colours();

    void clickRow(int row, Qt::MouseButton button = Qt::LeftButton);
    [[nodiscard]] QWidget* dock(const char* window) const;
    /// A picture of what the screen shows of a widget, without a frame.
    void take(const char* name, const QWidget* widget);

    Editor& editor_;
    QString results_;
    QString pictures_;
    Robot robot_;
};

} // namespace quillset::tour
