#include "compiler/element_walk.h"

namespace quillset::compiler {

void skipElement(TagScanner& scanner) {
    for (std::size_t depth = 1; depth > 0;) {
        const TagScanner::Event event = scanner.next();
        if (event == TagScanner::Event::end)
            return;
        depth += event == TagScanner::Event::startTag ? 1U : 0U;
        depth -= event == TagScanner::Event::endTag ? 1U : 0U;
    }
}

void expectNoChildren(ReadContext& context, std::string_view parent) {
    eachChild(context, parent, [&] { unknownElement(context, parent, "none"); });
}

void unknownElement(ReadContext& context, std::string_view parent, std::string_view allowed) {
    std::string text = "<" + shown(context.scanner.name()) + ">: unknown element in <";
    text.append(parent).append(">; allowed are: ").append(allowed);
    context.report.error(context.scanner.offset(), std::move(text));
    skipElement(context.scanner);
}

void unsupportedElement(ReadContext& context, std::string_view consequence) {
    const std::string name(context.scanner.name());
    const std::string text = "<" + name + ">: this element is not supported";
    if (context.unsupported == Unsupported::isError) {
        context.report.error(context.scanner.offset(), text);
    } else {
        context.report.warning(context.scanner.offset(), (text + "; ").append(consequence));
        ++context.leftOut[name];
    }
    skipElement(context.scanner);
}

} // namespace quillset::compiler
