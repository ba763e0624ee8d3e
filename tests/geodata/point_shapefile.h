#pragma once

#include "geodata/memory_files.h"
#include "support/temporary_folder.h"

#include <string>
#include <utility>
#include <vector>

namespace quillset::test {

/// A shape as shapelib is to write it, and its record.
struct TestShape {
    double x = 0;
    double y = 0;
    std::string label;
    int type = SHPT_POINT;
};

/// Puts a shapefile together in memory; tests damage the texts before they write them.
struct TestShapefile {
    explicit TestShapefile(const std::vector<TestShape>& shapes, int type = SHPT_POINT,
                           const char* field = "DXF_LABEL", const char* codePage = nullptr) {
        MemoryFiles files;
        SAHooks hooks = MemoryFiles::hooks();
        {
            const ShapesHandle shapesFile(SHPCreateLL(files.name().c_str(), type, &hooks));
            const TableHandle table(DBFCreateLL(files.name().c_str(), codePage, &hooks));
            DBFAddField(table.get(), "NUMBER", FTInteger, 6, 0);
            const int label = DBFAddField(table.get(), field, FTString, 40, 0);
            for (int i = 0; i < static_cast<int>(shapes.size()); ++i) {
                const TestShape& shape = shapes[static_cast<std::size_t>(i)];
                const ShapeHandle object(SHPCreateSimpleObject(shape.type, shape.type == SHPT_NULL ? 0 : 1,
                                                               &shape.x, &shape.y, nullptr));
                SHPWriteObject(shapesFile.get(), -1, object.get());
                DBFWriteIntegerAttribute(table.get(), i, 0, i);
                DBFWriteStringAttribute(table.get(), i, label, shape.label.c_str());
            }
        }
        shp = files.file("shp");
        shx = files.file("shx");
        dbf = files.file("dbf");
        cpg = files.file("cpg");
    }

    /// Writes the files and gives the path of the .shp.
    std::string write(const TemporaryFolder& folder, const std::string& stem) const {
        folder.write(stem + ".shx", shx);
        folder.write(stem + ".dbf", dbf);
        if (!cpg.empty())
            folder.write(stem + ".cpg", cpg);
        return folder.write(stem + ".shp", shp);
    }

    std::string shp, shx, dbf, cpg;
};

} // namespace quillset::test
