#pragma once

#include "compiler/message.h"
#include "compiler/model_section.h"
#include "compiler/target.h"

#include <string>
#include <vector>

namespace quillset::compiler {

/// Looks at the files of all models of a document and gives each the GUID it is stored under. What is wrong
/// with a file or with the GUIDs is reported; with an error the result is not fit to be written.
/// `documentFolder` is the folder for relative paths, empty for the current one.
[[nodiscard]] std::vector<Model> checkModels(const std::vector<ModelData>& models, Target target,
                                             const std::string& documentFolder, Report& report);

} // namespace quillset::compiler
