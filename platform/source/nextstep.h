// The NeXT encoding, in which an octal escape of a .strings file is written.
#pragma once

namespace brvplatform {

char16_t NextStepUnit(unsigned char byte);

}  // namespace brvplatform
