#include "compiler/attribute_reader.h"

#include <algorithm>
#include <bit>

namespace quillset::compiler {

namespace {

// Declarations of namespaces and what other programs understand under a prefix ("xsi:...").
bool isForeign(std::string_view name) {
    return name == "xmlns" || name.find(':') != std::string_view::npos;
}

} // namespace

const TagAttribute* AttributeReader::look(std::string_view name) {
    for (std::size_t i = 0; i < attributes_.size(); ++i) {
        const std::size_t index =
            likely_ + i < attributes_.size() ? likely_ + i : likely_ + i - attributes_.size();
        if (attributes_[index].name == name) {
            likely_ = index + 1 < attributes_.size() ? index + 1 : 0;
            found_ |= index < 64 ? std::uint64_t{1} << index : 0;
            return &attributes_[index];
        }
    }
    return nullptr;
}

bool AttributeReader::allFound() const {
    return static_cast<std::size_t>(std::popcount(found_)) == attributes_.size();
}

void AttributeReader::unsupported(std::string_view name, Unsupported treatment) {
    if (allFound())
        return;
    const TagAttribute* attribute = look(name);
    if (attribute == nullptr)
        return;
    unsupported_.push_back(attribute->name);
    if (treatment == Unsupported::isError)
        error(*attribute, "this attribute is not supported");
    else
        warning(*attribute, "this attribute is not supported and is left out");
}

void AttributeReader::finish() {
    if (allFound())
        return;
    const auto isAmong = [](const std::vector<std::string_view>& names, std::string_view name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    for (const TagAttribute& attribute : attributes_) {
        if (isForeign(attribute.name) || isAmong(asked_, attribute.name) ||
            isAmong(unsupported_, attribute.name))
            continue;
        std::string allowed;
        for (const std::string_view name : asked_)
            allowed.append(allowed.empty() ? "" : ", ").append(name);
        error(attribute, "unknown attribute; allowed are: " + (allowed.empty() ? "none" : allowed));
    }
}

void AttributeReader::error(const TagAttribute& attribute, std::string_view problem) {
    report_.error(attribute.offset, described(attribute).append(problem));
}

void AttributeReader::warning(const TagAttribute& attribute, std::string_view problem) {
    report_.warning(attribute.offset, described(attribute).append(problem));
}

void AttributeReader::notAllowed(const TagAttribute& attribute, std::string_view allowed) {
    error(attribute, std::string("this value is not allowed; allowed: ").append(allowed));
}

void AttributeReader::missing(std::string_view name, std::string_view allowed) {
    std::string text = "<" + shown(element_) + ">: the attribute ";
    text.append(name).append(" is missing; allowed: ").append(allowed);
    report_.error(offset_, std::move(text));
}

std::string AttributeReader::described(const TagAttribute& attribute) const {
    return "<" + shown(element_) + "> " + shown(attribute.name) + "=\"" + shown(attribute.value) + "\": ";
}

} // namespace quillset::compiler
