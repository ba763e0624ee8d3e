#pragma once

#include "compiler/byte_buffer.h"
#include "compiler/grid.h"
#include "compiler/records.h"
#include "compiler/target.h"

#include <cstddef>
#include <vector>

namespace quillset::compiler {

/// Appends the records of one placement, which stands at `place`, to `out`, and the size of `out` behind each
/// record to `ends`. A placement has one record, a generic building of several parts one for each.
void writeRecords(const SceneryObject& object, const GridPosition& place, Target target, ByteBuffer& out,
                  std::vector<std::size_t>& ends);

} // namespace quillset::compiler
