#pragma once

#include <shapefil.h>

#include <map>
#include <memory>
#include <string>

namespace quillset {

/// The files of one shapefile as texts in memory, by their extension ("shp", "dbf", ...), with the hooks by
/// which shapelib reads and writes them there: quicker than its own reading and writing, and paths stay out
/// of its hands. Must outlive the handles that shapelib opened on it.
class MemoryFiles {
public:
    MemoryFiles() = default;
    MemoryFiles(const MemoryFiles&) = delete;
    MemoryFiles& operator=(const MemoryFiles&) = delete;

    /// The path under which shapelib finds these files.
    [[nodiscard]] std::string name() const;
    [[nodiscard]] static SAHooks hooks();

    [[nodiscard]] std::string& file(const std::string& extension) { return files_[extension]; }

private:
    struct Stream;
    static Stream* streamOf(SAFile file);
    static SAFile open(const char* filename, const char* access);
    static SAOffset read(void* to, SAOffset size, SAOffset count, SAFile file);
    static SAOffset write(const void* from, SAOffset size, SAOffset count, SAFile file);
    static SAOffset seek(SAFile file, SAOffset offset, int whence);
    static SAOffset tell(SAFile file);
    static int flush(SAFile file);
    static int close(SAFile file);
    static int remove(const char* filename);

    std::map<std::string, std::string> files_;
};

struct ShapesCloser {
    void operator()(SHPInfo* shapes) const { SHPClose(shapes); }
};
struct TableCloser {
    void operator()(DBFInfo* table) const { DBFClose(table); }
};
struct ShapeDestroyer {
    void operator()(SHPObject* shape) const { SHPDestroyObject(shape); }
};
using ShapesHandle = std::unique_ptr<SHPInfo, ShapesCloser>;
using TableHandle = std::unique_ptr<DBFInfo, TableCloser>;
using ShapeHandle = std::unique_ptr<SHPObject, ShapeDestroyer>;

} // namespace quillset
