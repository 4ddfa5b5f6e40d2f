// The folder of a new extension.
#pragma once

#include "host/project/choices.h"

namespace brvhost {

// Makes the folder of that name in the working folder: what builds a bundle and tests it. Throws OutputError, and
// leaves nothing then; a folder that is there already stays as it is.
void MakeProject(const ProjectChoices& choices);

}  // namespace brvhost
