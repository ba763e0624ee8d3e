#include "document/undo_journal.h"

#include "base/growing_xml.h"
#include "base/paths.h"
#include "base/runtime_error.h"
#include "document/scenery_document.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace quillset {

namespace {

namespace fs = std::filesystem;

RuntimeError lastError(const std::string& path) {
    const int code = errno != 0 ? errno : EIO;
    return fileError(std::error_code(code, std::generic_category()), path);
}

/// Snapshots serve the running program only, so nothing is forced to the disk here; but the file gets its
/// name when it is complete, so that one cut short is never taken for a good one.
void writeSnapshot(const std::string& path, const FileContent& content) {
    const std::string working = path + ".part";
    std::error_code ignored;
    errno = 0;
    std::ofstream out(toPath(working), std::ios::binary | std::ios::trunc);
    const auto check = [&] {
        if (!out)
            throw lastError(path);
    };
    check();
    try {
        content([&](std::string_view piece) {
            out.write(piece.data(), static_cast<std::streamsize>(piece.size()));
            check();
        });
        out.close();
        check();
    } catch (...) {
        out.close();
        fs::remove(toPath(working), ignored);
        throw;
    }
    // An older run or branch may have left a snapshot there. File systems take a file that is renamed over
    // another one for a careful save and write its bytes out at once; here that would only cost time.
    fs::remove(toPath(path), ignored);
    std::error_code failed;
    fs::rename(toPath(working), toPath(path), failed);
    if (failed) {
        fs::remove(toPath(working), ignored);
        throw fileError(failed, path);
    }
}

const char* captionOf(UndoKind kind) {
    switch (kind) {
    case UndoKind::addObject:
        return "Undo add object";
    case UndoKind::removeObject:
        return "Undo remove object";
    case UndoKind::changeParameter:
        return "Undo change parameter";
    case UndoKind::addModel:
        return "Undo add MDL object";
    case UndoKind::removeModel:
        return "Undo remove MDL object";
    }
    return "Undo";
}

} // namespace

UndoJournal::UndoJournal(SceneryDocument& document, std::string folder)
    : document_(document)
    , folder_(std::move(folder)) {}

void UndoJournal::record(UndoKind kind) {
    requireRoom();
    write(kind, [this](const PieceSink& put) { document_.serialise(put); });
}

void UndoJournal::record(UndoKind kind, const GrowingXml& serialised) {
    requireRoom();
    write(kind, [&](const PieceSink& put) {
        put(serialised.head());
        put(serialised.tail());
    });
}

void UndoJournal::requireRoom() const {
    if (!document_.isOpen())
        throw RuntimeError(ErrorNumber::objectNotSet);
    if (count() >= maximumCount)
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
}

void UndoJournal::write(UndoKind kind, const FileContent& content) {
    writeSnapshot(snapshotPath(count()), content);
    kinds_.push_back(kind);
    highestCount_ = std::max(highestCount_, count());
}

std::optional<std::string> UndoJournal::undo() {
    if (kinds_.empty())
        return std::nullopt;
    const std::string undone = caption();
    const std::string path = snapshotPath(count() - 1);
    kinds_.pop_back();
    document_.restore(path);
    return undone;
}

std::string UndoJournal::caption() const {
    return kinds_.empty() ? "Undo" : captionOf(kinds_.back());
}

void UndoJournal::reset() {
    kinds_.clear();
}

void UndoJournal::deleteSnapshots() {
    std::optional<RuntimeError> first;
    for (std::size_t position = 0; position < highestCount_; ++position) {
        const std::string path = snapshotPath(position);
        std::error_code failed;
        fs::remove(toPath(path), failed);
        if (failed && !first)
            first = fileError(failed, path);
    }
    if (first)
        throw RuntimeError(*first);
}

std::string UndoJournal::snapshotPath(std::size_t position) const {
    std::string digits = std::to_string(position);
    digits.insert(0, digits.size() < 4 ? 4 - digits.size() : 0, '0');
    return joinPath(folder_, "undo" + digits + ".xml");
}

} // namespace quillset
