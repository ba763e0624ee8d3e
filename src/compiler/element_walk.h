#pragma once

#include "base/tag_scanner.h"
#include "compiler/attribute_reader.h"
#include "compiler/message.h"
#include "compiler/target.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillset::compiler {

/// What the readers of all elements share.
struct ReadContext {
    TagScanner& scanner;
    Report& report;
    Target target = Target::fs2004;
    Unsupported unsupported = Unsupported::isError;
    /// Names of what was left out as unsupported, with their number.
    std::map<std::string, std::size_t, std::less<>> leftOut{};
};

/// Moves behind the end tag of the element whose start tag was the last event, whatever it holds.
void skipElement(TagScanner& scanner);

/// Runs `onChild` at the start tag of each child of the element whose start tag was the last event; `onChild`
/// moves behind the child's end tag. Text between the children is an error. False when the text breaks off
/// before the element's end.
template <class OnChild>
bool eachChild(ReadContext& context, std::string_view parent, OnChild onChild) {
    for (;;) {
        switch (context.scanner.next()) {
        case TagScanner::Event::startTag:
            onChild();
            break;
        case TagScanner::Event::text:
            context.report.error(context.scanner.offset(),
                                 "<" + std::string(parent) + ">: text is not allowed in this element");
            break;
        case TagScanner::Event::endTag:
            return true;
        case TagScanner::Event::end:
            return false;
        }
    }
}

/// For an element that holds nothing: reports each child, and moves behind the end tag.
void expectNoChildren(ReadContext& context, std::string_view parent);

/// Reports the element whose start tag was the last event as one that `parent` cannot hold, and skips it.
void unknownElement(ReadContext& context, std::string_view parent, std::string_view allowed);

/// Reports it as one that the schema knows but this compiler does not write, and skips it. `consequence` says
/// what goes with it.
void unsupportedElement(ReadContext& context, std::string_view consequence);

} // namespace quillset::compiler
