#pragma once

#include "properties/spin_settings.h"

#include <map>
#include <string>
#include <vector>

namespace quillset::test {

/// Keeps settings and the order in which they are used.
class MapBag : public PropertyBag {
public:
    std::string read(const std::string& name, const std::string& defaultText) override {
        order.push_back(name);
        const auto entry = texts.find(name);
        return entry == texts.end() ? defaultText : entry->second;
    }
    void write(const std::string& name, const std::string& text) override {
        order.push_back(name);
        texts[name] = text;
    }
    std::map<std::string, std::string> texts;
    std::vector<std::string> order;
};

} // namespace quillset::test
