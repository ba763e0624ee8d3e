#pragma once

#include "base/paths.h"
#include "base/registry.h"

#include <map>
#include <string>

namespace quillset::test {

/// A registry that holds what a test puts in: values by "key|value name", both in any letter case.
class TableRegistry : public Registry {
public:
    std::string text(std::string_view key, std::string_view valueName) const override {
        const auto found = values_.find(lowerCase(std::string(key) + "|" + std::string(valueName)));
        return found == values_.end() ? std::string() : found->second;
    }
    std::string nativePath(std::string_view windowsPath) const override { return std::string(windowsPath); }

    void set(const std::string& key, const std::string& valueName, const std::string& value) {
        values_[lowerCase(key + "|" + valueName)] = value;
    }

private:
    std::map<std::string, std::string> values_;
};

} // namespace quillset::test
