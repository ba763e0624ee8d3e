#pragma once

#include "base/dialogs.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace quillset {

/// Dialogs of a run without windows: messages become lines, every question is answered No, and a file to save
/// is the one named on the command line.
class ConsoleDialogs : public Dialogs {
public:
    /// `write` takes each line.
    explicit ConsoleDialogs(std::function<void(std::string_view line)> write, std::string target = {})
        : write_(std::move(write))
        , target_(std::move(target)) {}

    Answer ask(const Message& message) override {
        std::string line = "quillset-xml: ";
        for (const char c : message.detail.empty() ? message.text : message.text + ": " + message.detail)
            if (c != '\r')
                line += c == '\n' ? ' ' : c;
        write_(line + "\n");
        return message.buttons == MessageButtons::ok ? Answer::ok : Answer::no;
    }
    [[nodiscard]] std::string openFile(const FileRequest& /*request*/) override { return {}; }
    [[nodiscard]] std::string saveFile(const FileRequest& /*request*/) override { return target_; }
    [[nodiscard]] std::string chooseFolder(const std::string& /*instruction*/) override { return {}; }

private:
    std::function<void(std::string_view)> write_;
    std::string target_;
};

} // namespace quillset
