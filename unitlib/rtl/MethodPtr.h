/// Method pointers: a bound member function, or a function with a context, as a small value compared as a
/// pair.
#pragma once

#include <type_traits>
#include <utility>

namespace unitlib {

/// A method pointer without its signature, as event lists keep it. Two are equal when object and code are
/// equal. Code is not the address of machine code: a linker may fold two functions with equal bodies into
/// one, and each compiler represents a pointer to member in its own way. It is the address of one writable
/// byte per function, which no linker folds; for a function known at run time only, it is the function's
/// address. A byte belongs to the module (program or DLL) that names the function: make and compare a pointer
/// in one module.
struct TMethod {
  void* Data = nullptr;
  const void* Code = nullptr;
  void (*Invoke)() = nullptr; // the caller of Code, cast back by TMethodPtr; not part of the identity

  friend bool operator==(const TMethod& A, const TMethod& B) noexcept {
    return A.Data == B.Data && A.Code == B.Code;
  }
};

namespace detail {

template <auto Function> inline char MethodTag = 0; // never const: constants are folded like code

template <class F> struct TMethodTraits;
template <class C, class R, class... A> struct TMethodTraits<R (C::*)(A...)> {
  using Object = C;
  using Signature = R(A...);
};
template <class C, class R, class... A>
struct TMethodTraits<R (C::*)(A...) noexcept> : TMethodTraits<R (C::*)(A...)> {};
template <class C, class R, class... A> struct TMethodTraits<R (C::*)(A...) const> {
  using Object = const C;
  using Signature = R(A...);
};
template <class C, class R, class... A>
struct TMethodTraits<R (C::*)(A...) const noexcept> : TMethodTraits<R (C::*)(A...) const> {};
template <class R, class... A> struct TMethodTraits<R (*)(void*, A...)> {
  using Object = void;
  using Signature = R(A...);
};
template <class R, class... A>
struct TMethodTraits<R (*)(void*, A...) noexcept> : TMethodTraits<R (*)(void*, A...)> {};

} // namespace detail

template <class Signature> class TMethodPtr;

/// A method pointer that can be called. Empty by default; calling an empty one does nothing and returns R().
///   auto Redraw = MethodOf<&TGrid::Redraw>(&Grid);      // TMethodPtr<void()>
///   Redraw();                                           // Grid.Redraw()
/// The object is borrowed: it must outlive every copy that is still called.
template <class R, class... A> class TMethodPtr<R(A...)> {
public:
  using TFunction = R (*)(void* Context, A...);

  TMethodPtr() = default;
  /// A pointer taken back from a list; Method must have been made with this signature.
  explicit TMethodPtr(const TMethod& Method) noexcept : FMethod(Method) {}

  /// Method bound to Object, a class derived from the method's being fine. Empty when Object is null.
  template <auto Method, class C>
  requires std::is_member_function_pointer_v<decltype(Method)>
  static TMethodPtr Of(C* Object) noexcept {
    using TObject = typename detail::TMethodTraits<decltype(Method)>::Object;
    TObject* Target = Object; // to the method's own class, so that one object has one address
    if (!Target) return {};
    return Make(const_cast<void*>(static_cast<const void*>(Target)), &detail::MethodTag<Method>,
                &CallMethod<Method, TObject>);
  }

  /// A function with its context (which may be null).
  template <auto Function>
  requires std::is_convertible_v<decltype(Function), TFunction>
  static TMethodPtr Of(void* Context) noexcept {
    return Make(Context, &detail::MethodTag<Function>, &CallKnown<Function>);
  }

  /// The same for a function known at run time only; its address is its identity. Empty when Function is
  /// null.
  static TMethodPtr OfFunction(TFunction Function, void* Context) noexcept {
    if (!Function) return {};
    return Make(Context, reinterpret_cast<const void*>(Function), &CallFunction);
  }

  R operator()(A... Args) const {
    if (!FMethod.Invoke) return R();
    return reinterpret_cast<TThunk>(FMethod.Invoke)(FMethod, std::forward<A>(Args)...);
  }

  explicit operator bool() const noexcept { return FMethod.Invoke != nullptr; }
  operator const TMethod&() const noexcept { return FMethod; }
  friend bool operator==(const TMethodPtr& X, const TMethodPtr& Y) noexcept { return X.FMethod == Y.FMethod; }

private:
  using TThunk = R (*)(const TMethod&, A...);

  static TMethodPtr Make(void* Data, const void* Code, TThunk Thunk) noexcept {
    return TMethodPtr(TMethod{Data, Code, reinterpret_cast<void (*)()>(Thunk)});
  }
  template <auto Method, class TObject> static R CallMethod(const TMethod& Self, A... Args) {
    return (static_cast<TObject*>(Self.Data)->*Method)(std::forward<A>(Args)...);
  }
  template <auto Function> static R CallKnown(const TMethod& Self, A... Args) {
    return Function(Self.Data, std::forward<A>(Args)...);
  }
  static R CallFunction(const TMethod& Self, A... Args) {
    return reinterpret_cast<TFunction>(const_cast<void*>(Self.Code))(Self.Data, std::forward<A>(Args)...);
  }

  TMethod FMethod;
};

/// A method pointer whose signature is the function's own: MethodOf<&TGrid::Redraw>(&Grid),
/// MethodOf<&Log>(&File).
template <auto Function, class C> auto MethodOf(C* Object) noexcept {
  using TSignature = typename detail::TMethodTraits<decltype(Function)>::Signature;
  return TMethodPtr<TSignature>::template Of<Function>(Object);
}

} // namespace unitlib
