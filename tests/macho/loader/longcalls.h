// The host functions with more arguments than registers: on arm64 the two systems lay the rest out in different ways.
#pragma once

#define BRV_LONG_CALLS(call)                                                                                 \
  call(BX_QueryOdelSlot) call(BX_QueryOdelSlot_2010) call(BX_QueryOdelSlot_2010_UTF16) call(BX_SyllableInfo) \
      call(BX_SyllableInfo_UTF16)
