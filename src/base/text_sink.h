#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string_view>
#include <utility>

namespace quillset {

/// Collects small pieces of text and passes them on in large ones. Much faster than appending each piece to a
/// string: a document of 100,000 placements has ten million of them.
class TextSink {
public:
    explicit TextSink(std::function<void(std::string_view piece)> out)
        : out_(std::move(out)) {}

    void put(char c) {
        if (used_ == chunk_.size())
            flush();
        chunk_[used_++] = c;
    }
    void put(std::string_view text) {
        if (text.size() > chunk_.size() - used_) {
            flush();
            if (text.size() > chunk_.size()) {
                out_(text);
                last_ = text.back();
                return;
            }
        }
        std::memcpy(chunk_.data() + used_, text.data(), text.size());
        used_ += text.size();
    }
    /// Room for `size` bytes (far fewer than a piece holds) to be filled directly, from the start; take()
    /// then counts those before `end` as put.
    [[nodiscard]] char* room(std::size_t size) {
        if (size > chunk_.size() - used_)
            flush();
        return chunk_.data() + used_;
    }
    void take(const char* end) { used_ = static_cast<std::size_t>(end - chunk_.data()); }
    /// Copies what stands before the first byte that `isStop` is true for, and gives that byte's place.
    template <class IsStop>
    const char* putUntil(const char* at, const IsStop& isStop) {
        // By way of local pointers: a byte that is stored might be one of the members, for all the compiler
        // knows, so that it would fetch and store those for each byte.
        for (;;) {
            char* to = chunk_.data() + used_;
            const char* const end = chunk_.data() + chunk_.size();
            while (to != end && !isStop(*at))
                *to++ = *at++;
            used_ = static_cast<std::size_t>(to - chunk_.data());
            if (to != end)
                return at;
            flush();
        }
    }
    /// What is put follows this byte, which somebody else has put.
    void continueAfter(char c) { last_ = c; }
    /// The last byte put so far, 0 before the first.
    [[nodiscard]] char last() const { return used_ > 0 ? chunk_[used_ - 1] : last_; }
    /// Passes on the rest; to be called at the end.
    void flush() {
        if (used_ == 0)
            return;
        last_ = chunk_[used_ - 1];
        out_({chunk_.data(), used_});
        used_ = 0;
    }

private:
    std::function<void(std::string_view)> out_;
    std::array<char, 32768> chunk_; // stays in the processor's caches
    std::size_t used_ = 0;
    char last_ = '\0';
};

} // namespace quillset
