#include "build/compiler_command.h"

namespace quillset {

std::string compileBatch(const std::string& programFolder) {
    // A percent sign in the folder makes the interpreter miss the folder of line 3. That does no harm: the
    // compiler is started with the program folder as its working folder all the same.
    return "@echo off\r\n" + programFolder.substr(0, 1) + ":\r\ncd \"" + programFolder +
           "\"\r\n@echo on\r\nbglcomp " + compileXmlName + "\r\n";
}

} // namespace quillset
