#pragma once

#include "base/dialogs.h"

#include <deque>
#include <string>
#include <vector>

namespace quillset::test {

/// Answers from a script and records what was asked. An exhausted script answers OK, No or an empty path.
class ScriptedDialogs : public Dialogs {
public:
    Answer ask(const Message& message) override {
        messages.push_back(message);
        if (answers.empty())
            return message.buttons == MessageButtons::ok ? Answer::ok : Answer::no;
        return take(answers);
    }
    Quiet tellQuietable(const Message& message, const std::string& checkBox) override {
        checkBoxes.push_back(checkBox);
        ask(message);
        return static_cast<int>(checkBoxes.size()) == quietAfter ? Quiet::untilNextStart : Quiet::no;
    }
    std::string openFile(const FileRequest& request) override { return choose(request); }
    std::string saveFile(const FileRequest& request) override { return choose(request); }
    std::string chooseFolder(const std::string& instruction) override {
        return choose({instruction, {}, {}, {}});
    }

    std::deque<Answer> answers;
    std::deque<std::string> paths;
    std::vector<Message> messages;
    /// The check boxes of messages that offered one; the n-th is ticked, none when 0.
    std::vector<std::string> checkBoxes;
    int quietAfter = 0;
    std::vector<FileRequest> requests;

private:
    template <class T>
    static T take(std::deque<T>& queue) {
        const T first = queue.front();
        queue.pop_front();
        return first;
    }
    std::string choose(const FileRequest& request) {
        requests.push_back(request);
        return paths.empty() ? std::string() : take(paths);
    }
};

} // namespace quillset::test
