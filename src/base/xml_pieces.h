#pragma once

#include "base/atomic_file.h"
#include "base/xml_writer.h"

namespace quillset {

/// Writes a node as XmlWriter::write does, byte for byte, but a document with many nodes below its root by
/// several threads at once. `out` is called on the calling thread; what it throws goes on to the caller.
/// False when a character does not fit into the encoding where no reference may stand (XmlWriter::failed).
[[nodiscard]] bool writeXmlPieces(const pugi::xml_node& node, TextEncoding encoding, XmlWriter::Layout layout,
                                  const PieceSink& out);

} // namespace quillset
