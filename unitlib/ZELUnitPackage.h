/// Start-up and shut-down of the package, in one explicit order. Both run by themselves when the library is
/// loaded and unloaded; nobody needs to call them.
#pragma once

namespace unitlib {

/// Creates the digit-group registry, the parser registry with every parser class, and the refresh manager. A
/// second call does nothing.
void LoadUnitPackage();
/// Frees the refresh manager and the registries (the settings are freed by FreeUnitSystem, or with the
/// process). A second call does nothing.
void UnloadUnitPackage() noexcept;

/// Keeps the start-up in programs that link the library statically: a file that reads the registries names
/// it.
///   [[gnu::used]] static constexpr TPackageAnchor Anchor = LoadUnitPackage;
using TPackageAnchor = void (*)();

} // namespace unitlib
