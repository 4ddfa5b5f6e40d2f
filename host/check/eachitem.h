// Items, one after another.
#pragma once

#include <functional>
#include <string>

#include "host/bundle/extension.h"
#include "host/check/trial.h"
#include "host/score/score.h"

namespace brvhost {

int ItemCountOf(const Extension& extension);

// What `check` finds wrong with the first item that it finds anything wrong with, each tried on a fresh score.
std::string ForEachItem(const std::string& path, Trial::Kind kind, const std::function<std::string(Trial&, int)>& check,
                        const Score& score = TrialScore());

}  // namespace brvhost
