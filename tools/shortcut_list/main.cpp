// quillset-shortcut-list: prints the tables of docs/shortcuts.md; tools/update-manual puts them there.
#include "shortcut_list/shortcut_list.h"

#include "base/console_program.h"

int main() {
    quillset::writeConsole(quillset::ConsoleStream::output, quillset::shortcutList());
    return 0;
}
