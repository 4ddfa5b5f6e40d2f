// Values of a property list that are no strings: arrays, dictionaries, data, numbers.
#pragma once

#include "cfobject.h"

namespace brvplatform {

// Such a value tells that its key is there, and no more.
class OtherValue final : public Object {
 public:
  CFTypeID TypeID() const override { return kDictionaryType; }
  std::u16string Description() const override { return u"{}"; }
};

inline Owned<CFTypeRef> NewOtherValue() { return Owned<CFTypeRef>(new OtherValue); }

}  // namespace brvplatform
