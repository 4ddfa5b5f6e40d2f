// What an item leaves behind that it should have freed or ended. Each returns what is wrong, or nothing.
#pragma once

#include <string>

#include "host/check/trial.h"
#include "host/services/document.h"
#include "host/services/session.h"

namespace brvhost {

// Frames, but those of the functions of the kit that leave theirs loaded by contract; and wrong calls.
std::string LeftFrames(const OpenDocument& document, int item);
inline std::string LeftFrames(const Trial& trial, int item) { return LeftFrames(trial.Document(), item); }
// Frames of those functions.
std::string FramesLeftByContract(const Trial& trial, int item);
// An edit or a progress display.
std::string LeftOpen(const Session& session, int item);
inline std::string LeftOpen(const Trial& trial, int item) { return LeftOpen(trial.OpenSession(), item); }

}  // namespace brvhost
