#pragma once

#include "byte_source.h"

#include <ostream>

namespace bgl_list {

/// Prints a BGL file as text: header, sections, and line by line its placements and models. Sections and
/// records of other kinds are named by their numbers. Throws Damage at the first thing that cannot be; what
/// precedes it is printed. A record outside its cell, a cell outside the header's, or bytes that belong to
/// nothing are remarked in lines that begin with "REMARK".
void list(ByteSource& file, std::ostream& out);

} // namespace bgl_list
