// For processes that run foreign code, of which nothing is to be seen.
#pragma once

namespace brvhost {

// From now on the standard streams of this process lead nowhere.
void SilenceStreams();

}  // namespace brvhost
