#include "compiler/model_check.h"

#include "base/runtime_error.h"
#include "compiler/format_choices.h"

#include <map>

namespace quillset::compiler {

namespace {

std::string sourceOf(const ModelData& model) {
    return "<ModelData> sourceFile=\"" + shown(model.sourceFile) + "\": ";
}

std::string nameOf(const ModelData& model) {
    return "<ModelData> name=\"" + shown(model.name) + "\": ";
}

// FS2004's compiler copies every file; what its simulator will not show deserves a word.
void warnAboutForm(const ModelData& model, const ModelFile& file, Report& report) {
    if (file.form.empty())
        report.warning(model.sourceFileOffset,
                       sourceOf(model) + "this is no model file (RIFF); it is copied as it is");
    else if (file.form == format::laterModelForm)
        report.warning(model.sourceFileOffset,
                       sourceOf(model) + "a model of the later simulator, which FS2004 does not show");
}

std::optional<GuidBytes> guidForLater(const ModelData& model, const ModelFile& file, Report& report) {
    if (!file.guid)
        report.error(model.sourceFileOffset,
                     sourceOf(model) + "the model holds no GUID (chunk MDLG), which the target fsx needs");
    else if (model.guid && *model.guid != *file.guid)
        report.error(model.nameOffset, nameOf(model) + "another GUID than the one in the model file; "
                                                       "allowed: that one, or no name");
    return file.guid;
}

} // namespace

std::vector<Model> checkModels(const std::vector<ModelData>& models, Target target,
                               const std::string& documentFolder, Report& report) {
    std::vector<Model> checked;
    std::map<GuidBytes, std::size_t> places;
    for (const ModelData& model : models) {
        if (model.sourceFile.empty())
            continue; // reported when it was read
        try {
            ModelFile file = inspectModel(modelPath(documentFolder, model.sourceFile));
            if (target == Target::fs2004)
                warnAboutForm(model, file, report);
            const auto guid = target == Target::fsx ? guidForLater(model, file, report) : model.guid;
            if (!guid)
                continue;
            const auto [first, isNew] = places.try_emplace(*guid, model.nameOffset);
            if (!isNew) {
                const std::string place = report.place(first->second);
                report.error(model.nameOffset, nameOf(model) + "the model at " + place +
                                                   " has the same GUID; allowed: each once");
            }
            checked.push_back({*guid, std::move(file)});
        } catch (const RuntimeError& problem) {
            report.error(model.sourceFileOffset, sourceOf(model) + problem.what());
        }
    }
    return checked;
}

} // namespace quillset::compiler
