#include "compiler/model_section.h"

#include "base/runtime_error.h"
#include "compiler/byte_buffer.h"

#include <algorithm>
#include <limits>

namespace quillset::compiler {

namespace {
constexpr std::size_t indexEntry = 24;
}

ModelSection::ModelSection(std::vector<Model> models)
    : models_(std::move(models)) {
    std::sort(models_.begin(), models_.end(), [](const Model& a, const Model& b) { return a.guid < b.guid; });
    std::uint64_t size = indexEntry * models_.size();
    for (const Model& model : models_)
        size += model.file.size;
    if (size > std::numeric_limits<std::uint32_t>::max())
        throw RuntimeError(ErrorNumber::overflow, "the models together take more than 4 GB");
    size_ = static_cast<std::uint32_t>(size);
}

void ModelSection::write(const std::function<void(std::string_view)>& put) const {
    ByteBuffer index;
    auto offset = static_cast<std::uint32_t>(indexEntry * models_.size());
    for (const Model& model : models_) {
        index.bytes(model.guid);
        index.dword(offset);
        index.dword(model.file.size);
        offset += model.file.size;
    }
    put(index.text());
    for (const Model& model : models_)
        readModel(model.file, put);
}

} // namespace quillset::compiler
