// Makes the catalogue's default library file from the list of the simulator's default objects.

#include "base/atomic_file.h"
#include "generic_maker/generic_library.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: quillset_generic_maker LIST.tsv GENERIC.xml\n", stderr);
        return 2;
    }
    try {
        const std::string file = quillset::genericLibrary(quillset::readWholeFile(arguments[1]));
        quillset::writeFileAtomically(*quillset::systemFileOperations(), arguments[2], file);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], error.what());
        return 1;
    }
}
