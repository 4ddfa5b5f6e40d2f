// Values of a property list that are not strings: arrays, dictionaries, data, numbers.
#pragma once

#include "cfobject.h"

namespace brvplatform {

// Such a value only shows that its key exists.
class OtherValue final : public Object {
 public:
  CFTypeID TypeID() const override { return kDictionaryType; }
  std::u16string Description() const override { return u"{}"; }
};

inline Owned<CFTypeRef> NewOtherValue() { return Owned<CFTypeRef>(new OtherValue); }

}  // namespace brvplatform
