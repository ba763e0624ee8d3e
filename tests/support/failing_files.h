#pragma once

#include "base/atomic_file.h"
#include "base/runtime_error.h"

#include <fstream>

#include "base/paths.h"

namespace quillset::test {

/// The power is gone: no operation works from then on, not even a clean-up.
struct PowerLoss {};

/// The system's files, but operation number `at` (from 1; 0 for none) does not work. A write that stops
/// leaves half of the bytes.
class FailingFiles : public FileOperations {
public:
    enum class Kind { fails, losesPowerBefore, losesPowerAfter };

    explicit FailingFiles(int at = 0, Kind kind = Kind::fails)
        : at_(at)
        , kind_(kind) {}

    std::string writableTarget(const std::string& path) override {
        std::string target;
        step([&] { target = real_->writableTarget(path); });
        return target;
    }
    void writeAndFlush(const std::string& path, const FileContent& content,
                       const std::string& target) override {
        if (count_ + 1 == at_ && kind_ != Kind::losesPowerAfter) {
            std::string bytes;
            content([&](std::string_view piece) { bytes += piece; });
            std::ofstream(toPath(path), std::ios::binary) << bytes.substr(0, bytes.size() / 2);
        }
        step([&] { real_->writeAndFlush(path, content, target); });
    }
    void replace(const std::string& from, const std::string& to) override {
        step([&] { real_->replace(from, to); });
    }
    void flushFolder(const std::string& target) override {
        step([&] { real_->flushFolder(target); });
    }
    void remove(const std::string& path) override {
        step([&] { real_->remove(path); });
    }

    /// Operations begun so far.
    [[nodiscard]] int count() const { return count_; }

private:
    template <class Operation>
    void step(const Operation& operation) {
        if (powerIsOff_)
            throw PowerLoss();
        const bool hit = ++count_ == at_;
        if (hit && kind_ == Kind::fails)
            throw RuntimeError(ErrorNumber::diskFull);
        powerIsOff_ = hit;
        if (!hit || kind_ == Kind::losesPowerAfter)
            operation();
        if (hit)
            throw PowerLoss();
    }

    std::unique_ptr<FileOperations> real_ = systemFileOperations();
    int at_;
    Kind kind_;
    int count_ = 0;
    bool powerIsOff_ = false;
};

} // namespace quillset::test
