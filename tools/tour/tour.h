#pragma once

#include "robot.h"

#include "shell/editor.h"

#include <QAbstractItemView>

namespace quillset::tour {

/// A whole session with the editor, as a user would work: from the start page to a compiled scenery file.
class Tour {
public:
    /// `results` takes the pictures, the saved XML and the compile log.
    Tour(Editor& editor, const QString& results);

    /// Start-up with its message that the simulator's module is missing; false when the program must end.
    [[nodiscard]] bool start();
    void run();

private:
    void startPage();
    void newDocument();
    void addObjects();
    void editList();
    void contextMenu();
    void menus();
    void convertCoordinates();
    void exportPoints();
    void save();
    void compile();
    void openAgain();
    void appearance();
    void closeDocument();

    /// Clicks the node of that text below the group of that text; the group's first one for an empty text.
    void selectInCatalogue(const char* group, const char* text);
    [[nodiscard]] QAbstractItemView& listView() const;
    void clickRow(int row, Qt::MouseButton button = Qt::LeftButton);
    [[nodiscard]] QString file(const char* name) const;
    void expectRows(int count) const;

    Editor& editor_;
    QString results_;
    Robot robot_;
};

} // namespace quillset::tour
