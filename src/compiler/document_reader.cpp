#include "compiler/document_reader.h"

#include "compiler/scenery_object_reader.h"

#include <algorithm>

namespace quillset::compiler {

namespace {

constexpr std::string_view rootName = "FSData";
constexpr std::string_view expectedVersion = "9.0";
constexpr std::string_view allowedChildren = "SceneryObject, ModelData";

// Known to the schema, of this simulator or a later one.
constexpr std::string_view unsupportedChildren[] = {
    "Airport",    "Marker",   "Waypoint",    "Boundary",        "Vor",   "Ndb",
    "Geopol",     "Reward",   "TimeZone",    "ExtrusionBridge", "Group", "ExclusionRectangle",
    "CarParking", "GLTFData", "WorldScript",
};

void readRootAttributes(ReadContext& context) {
    AttributeReader attributes(context.scanner, context.report);
    const TagAttribute* version = attributes.find("version");
    if (version == nullptr)
        context.report.warning(attributes.offset(),
                               "<FSData>: the attribute version is missing; expected: 9.0");
    else if (version->value != expectedVersion)
        attributes.warning(*version, "another version than the expected 9.0");
    attributes.finish();
}

ModelData readModelData(ReadContext& context) {
    AttributeReader attributes(context.scanner, context.report);
    ModelData model;
    const TagAttribute* const name = attributes.find("name");
    const TagAttribute* const sourceFile = attributes.find("sourceFile");
    model.name = name != nullptr ? name->value : std::string_view();
    model.nameOffset = name != nullptr ? name->offset : attributes.offset();
    model.sourceFileOffset = sourceFile != nullptr ? sourceFile->offset : attributes.offset();
    // The later simulator's models carry their GUID themselves.
    if (context.target == Target::fs2004 || name != nullptr)
        model.guid = attributes.required("name", values::guid);
    model.sourceFile = attributes.required("sourceFile", values::path);
    attributes.finish();
    expectNoChildren(context, "ModelData");
    return model;
}

void readRootChild(ReadContext& context, SceneryRecords& records) {
    const std::string_view name = context.scanner.name();
    if (name == "SceneryObject") {
        if (auto object = readSceneryObject(context))
            records.objects.push_back(std::move(*object));
    } else if (name == "ModelData") {
        records.models.push_back(readModelData(context));
    } else if (std::find(std::begin(unsupportedChildren), std::end(unsupportedChildren), name) !=
               std::end(unsupportedChildren)) {
        unsupportedElement(context, "it is left out with all that it holds");
    } else {
        unknownElement(context, rootName, allowedChildren);
    }
}

} // namespace

SceneryRecords readDocument(ReadContext& context) {
    SceneryRecords records;
    if (context.scanner.next() != TagScanner::Event::startTag)
        return records; // the text breaks off before the root: whoever found that reports it
    if (context.scanner.name() != rootName) {
        context.report.error(context.scanner.offset(), "<" + shown(context.scanner.name()) +
                                                           ">: unknown root element; allowed: FSData");
        return records;
    }
    readRootAttributes(context);
    eachChild(context, rootName, [&] { readRootChild(context, records); });
    return records;
}

} // namespace quillset::compiler
