#pragma once

#include "base/clock.h"
#include "simlink/simulator_services.h"

#include <memory>
#include <string>
#include <string_view>

namespace quillset {

/// The first line of each recording.
inline constexpr std::string_view recordingHeading = "Quillset simulator recording 1";

/// Services that pass everything on and write it down, so that a user's trouble with the simulator can be
/// looked at elsewhere. The recording is a text file, one question and its answer a line:
///
///     find UIPCMAIN = 1
///     send 0100000080050000... = 1 0100000080050000...
///
/// Exchanges are the bytes of the block before and after; lines that begin with "#" are for people: the time
/// of day, and each request with its data. Lines are on the disk at once. Throws RuntimeError when the file
/// cannot be created, or is there and no older recording; the clock must outlive the services.
[[nodiscard]] std::unique_ptr<SimulatorServices>
recordedServices(std::unique_ptr<SimulatorServices> services, const std::string& path, const Clock& clock);

/// A recording in the simulator's place, or the reason why it cannot be used.
struct Replay {
    std::unique_ptr<SimulatorServices> services;
    std::string problem;
};

/// Answers each question as recorded: the same question again gets its next answer, the last one for ever.
/// An exchange that was not recorded is refused, another question fails; nothing waits.
[[nodiscard]] Replay replayedServices(std::string_view recording);

} // namespace quillset
