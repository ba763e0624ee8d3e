#pragma once

#include <string>

namespace quillset {

/// Titles of message boxes.
inline constexpr const char* applicationTitle = "Quillset XML";
inline constexpr const char* errorTitle = "Quillset XML error";
inline constexpr const char* warningTitle = "Quillset XML warning";

enum class MessageButtons { ok, yesNo, yesNoCancel };
enum class MessageIcon { none, information, question, critical };
enum class Answer { ok, yes, no, cancel };
/// Whether the user asked for no more messages of a kind.
enum class Quiet { no, untilNextStart };

/// One message box. Texts are UTF-8 and shown literally (no markup).
struct Message {
    std::string text;
    std::string title = applicationTitle;
    MessageButtons buttons = MessageButtons::ok;
    MessageIcon icon = MessageIcon::none;
    /// What stands below the text: which file, and why. May be empty.
    std::string detail = {};

    bool operator==(const Message&) const = default;
};

/// A file dialog for one file.
struct FileRequest {
    std::string title;
    /// "Description (*.ext)|*.ext|", further pairs may follow.
    std::string filter;
    /// File name offered, with or without a folder; may be empty.
    std::string suggestedName;
    /// Folder to start in when the suggested name has none; may be empty.
    std::string startFolder;

    bool operator==(const FileRequest&) const = default;
};

/// Everything that asks the user something and waits for the answer. The windows use the real dialogs, the
/// tests a script of answers. A cancelled dialog gives an empty path (deliberate: also where a default name
/// was offered), a closed question gives Answer::cancel where that button exists.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    virtual Answer ask(const Message& message) = 0;
    [[nodiscard]] virtual std::string openFile(const FileRequest& request) = 0;
    /// Never asks about overwriting: the commands ask that themselves, with their own text.
    [[nodiscard]] virtual std::string saveFile(const FileRequest& request) = 0;
    /// Folder-only chooser with an instruction text.
    [[nodiscard]] virtual std::string chooseFolder(const std::string& instruction) = 0;

    /// A message that may come many times in a row, with a check box to be spared the rest of them.
    virtual Quiet tellQuietable(const Message& message, const std::string& checkBox) {
        static_cast<void>(checkBox);
        ask(message);
        return Quiet::no;
    }

    /// A message with an OK button.
    void tell(const std::string& text, const char* title = applicationTitle,
              MessageIcon icon = MessageIcon::information, const std::string& detail = {}) {
        ask({text, title, MessageButtons::ok, icon, detail});
    }
};

} // namespace quillset
