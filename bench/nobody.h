#pragma once

#include "base/activity_line.h"
#include "base/dialogs.h"

#include <cstdlib>
#include <string>

namespace quillset::bench {

class NoClock : public Clock {
public:
    [[nodiscard]] std::string timeText() const override { return {}; }
};

/// Nothing is ever asked in a benchmark.
class NoDialogs : public Dialogs {
public:
    Answer ask(const Message& /*message*/) override { std::abort(); }
    std::string openFile(const FileRequest& /*request*/) override { std::abort(); }
    std::string saveFile(const FileRequest& /*request*/) override { std::abort(); }
    std::string chooseFolder(const std::string& /*title*/) override { std::abort(); }
};

} // namespace quillset::bench
