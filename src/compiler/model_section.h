#pragma once

#include "compiler/model_file.h"
#include "compiler/records.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset::compiler {

/// A model that goes into the file under this GUID.
struct Model {
    GuidBytes guid{};
    ModelFile file;
};

/// The models as they lie in the file: an index, then their contents, both in ascending order of the GUIDs'
/// bytes. The contents stay on disk until they are written.
class ModelSection {
public:
    /// The GUIDs differ. Throws RuntimeError when the section would take 4 GB or more.
    explicit ModelSection(std::vector<Model> models);

    [[nodiscard]] std::uint32_t count() const { return static_cast<std::uint32_t>(models_.size()); }
    /// Bytes of index and contents.
    [[nodiscard]] std::uint32_t size() const { return size_; }
    /// Gives the section in pieces of at most 1 MB. Throws RuntimeError when a model cannot be read or is not
    /// the one any more that was inspected.
    void write(const std::function<void(std::string_view)>& put) const;

private:
    std::vector<Model> models_;
    std::uint32_t size_ = 0;
};

} // namespace quillset::compiler
