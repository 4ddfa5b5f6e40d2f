// The parameter list of a host function: the types from its prototype, the names from its line of the call table.
#pragma once

#include <tuple>

// The types in the type of a function.
template <class Signature>
struct HostSignature;

template <class Result, class... Arguments>
struct HostSignature<Result(Arguments...)> {
  using ResultType = Result;
  using ArgumentTypes = std::tuple<Arguments...>;
};

template <class Signature>
using HostReturn = typename HostSignature<Signature>::ResultType;

template <class Signature, int index>
using HostArgument = std::tuple_element_t<index, typename HostSignature<Signature>::ArgumentTypes>;

#define BRV_PARENTHESES ()
#define BRV_RESCAN_4(...) __VA_ARGS__
#define BRV_RESCAN_3(...) BRV_RESCAN_4(BRV_RESCAN_4(BRV_RESCAN_4(__VA_ARGS__)))
#define BRV_RESCAN_2(...) BRV_RESCAN_3(BRV_RESCAN_3(BRV_RESCAN_3(__VA_ARGS__)))
#define BRV_RESCAN(...) BRV_RESCAN_2(BRV_RESCAN_2(BRV_RESCAN_2(__VA_ARGS__)))

// BRV_PARAMETERS(f, a, b) is HostArgument<f, 0> a, HostArgument<f, 0 + 1> b; there may be up to 27.
#define BRV_PARAMETERS(function, ...) BRV_RESCAN(BRV_PARAMETER(function, 0, __VA_ARGS__))
#define BRV_PARAMETER(function, index, name, ...)          \
  HostArgument<decltype(function), index> name __VA_OPT__( \
      , BRV_NEXT_PARAMETER BRV_PARENTHESES(function, index + 1, __VA_ARGS__))
#define BRV_NEXT_PARAMETER() BRV_PARAMETER
