#pragma once

#include "compiler/model_section.h"
#include "compiler/scenery_section.h"

#include <chrono>
#include <functional>
#include <string_view>

namespace quillset::compiler {

/// A whole BGL file, ready to be written: header, section pointers, tables of the sections' parts, data; all
/// back to back, nothing is padded. An empty section is left out.
class BglFile {
public:
    /// Throws RuntimeError when the file would be 4 GB or larger. `time` is the time of compilation.
    BglFile(ScenerySection scenery, ModelSection models, std::chrono::system_clock::time_point time);

    /// Gives the file in pieces; throws what reading a model throws.
    void write(const std::function<void(std::string_view)>& put) const;
    [[nodiscard]] std::uint64_t size() const;

    [[nodiscard]] const ScenerySection& scenery() const { return scenery_; }
    [[nodiscard]] const ModelSection& models() const { return models_; }

private:
    [[nodiscard]] std::uint32_t tableBytes() const;
    [[nodiscard]] std::uint32_t sectionCount() const;

    ScenerySection scenery_;
    ModelSection models_;
    std::chrono::system_clock::time_point time_;
};

} // namespace quillset::compiler
