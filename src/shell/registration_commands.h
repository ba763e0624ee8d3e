#pragma once

#include "catalogue/library_registration.h"
#include "catalogue/model_registration.h"
#include "shell/session.h"

namespace quillset {

/// The commands of the Objects menu that register libraries and models: they join the catalogue's part with
/// the configuration and the open document.
class RegistrationCommands : private CatalogueConfiguration, private ModelStore {
public:
    explicit RegistrationCommands(Session& session);

    void addUserLibrary();
    void addRwy12Library();
    void addModel();
    void addModelFolder();
    void removeModel();

private:
    // CatalogueConfiguration
    [[nodiscard]] std::string xmlPath() const override;
    [[nodiscard]] std::string modelPath() const override;
    void setModelPath(const std::string& path) override;
    void appendLibrary(LibraryKind kind, const std::string& path) override;
    [[nodiscard]] CatalogueSources sources() const override;

    // ModelStore
    void recordSnapshot(ModelEdit edit) override;
    [[nodiscard]] std::vector<CatalogueModel> models() const override;
    void add(std::span<const CatalogueModel> models) override;
    std::vector<std::string> remove(const std::string& name) override;

    void requireDocument() const;

    Session& session_;
    LibraryRegistration libraries_;
    ModelRegistration models_;
};

} // namespace quillset
