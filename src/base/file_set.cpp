#include "base/file_set.h"

#include "base/atomic_file.h"
#include "base/paths.h"

#include <cstddef>

namespace quillset {

namespace {

void removeQuietly(FileOperations& files, const std::string& path) {
    try {
        files.remove(path);
    } catch (...) { // the failure that led here is the one to tell, or the file is of no use but harmless
    }
}

// What is on the disk when the power fails
//   while the copies are written: the old files, and perhaps useless copies;
//   while the old files are put aside, the first one foremost: the old files or no first file, and every old
//     file whole under its own or under its working name;
//   while the copies take their names, the first one at the end: no first file yet, so that no program takes
//     what is there for something whole;
//   after that: the new files, and perhaps the old ones under working names.
// A step that fails without that undoes the steps before it, the last one first.
class FileSetChange {
public:
    FileSetChange(FileOperations& files, const std::vector<SetFile>& set)
        : files_(files)
        , set_(set) {}

    void run() {
        try {
            for (const SetFile& file : set_)
                writeCopy(file);
            for (Place& place : places_)
                putAside(place);
            for (auto place = places_.rbegin(); place != places_.rend(); ++place)
                install(*place);
            files_.flushFolder(places_.front().target);
        } catch (...) {
            takeBack();
            throw;
        }
        for (const Place& place : places_)
            if (!place.old.empty())
                removeQuietly(files_, place.old);
    }

private:
    struct Place {
        std::string target;
        std::string copy;       // of the new content; empty once it has its name
        std::string old;        // the working name of the old file; empty while it has its own
        bool installed = false; // the new file has its name
    };

    void writeCopy(const SetFile& file) {
        const std::string target = files_.writableTarget(file.path);
        places_.push_back({target, workingCopyIn(folderOf(target)), {}, false});
        files_.writeAndFlush(places_.back().copy, wholeContent(file.bytes), target);
    }

    void putAside(Place& place) {
        if (!fileExists(place.target))
            return;
        const std::string aside = workingCopyIn(folderOf(place.target));
        files_.replace(place.target, aside);
        place.old = aside;
    }

    void install(Place& place) {
        files_.replace(place.copy, place.target);
        place.copy.clear();
        place.installed = true;
    }

    void takeBack() {
        for (const Place& place : places_) {
            if (place.installed)
                removeQuietly(files_, place.target);
            if (!place.copy.empty())
                removeQuietly(files_, place.copy);
        }
        for (auto place = places_.rbegin(); place != places_.rend(); ++place) {
            if (place->old.empty())
                continue;
            try {
                files_.replace(place->old, place->target);
            } catch (...) { // the old file stays under its working name
            }
        }
    }

    FileOperations& files_;
    const std::vector<SetFile>& set_;
    std::vector<Place> places_;
};

} // namespace

void writeFilesTogether(FileOperations& files, const std::vector<SetFile>& set) {
    if (!set.empty())
        FileSetChange(files, set).run();
}

} // namespace quillset
