#pragma once

#include "preview/mesh_builder.h"
#include "preview/outline.h"

namespace quillset {

/// A level roof over the outline at the given height, the texture laid flat over sizeX by sizeZ.
void addFlatRoof(MeshBuilder& mesh, const Outline& outline, double sizeX, double sizeZ, double height,
                 const Cover& cover);
/// Triangles from every side of the outline to a point over the centre.
void addPointedRoof(MeshBuilder& mesh, const Building& building, const Outline& outline, double height);
/// A saddle whose ridge runs east-west, with a gable at either end.
void addRidgeRoof(MeshBuilder& mesh, const Building& building, double height);
/// One slope from the low to the high side, with the face under its high edge and a gable at either end.
void addSlantRoof(MeshBuilder& mesh, const Building& building, double height);

} // namespace quillset
