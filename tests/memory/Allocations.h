/// The program's operator new, counted, and failing when it is told to.
#pragma once

namespace unitlib::test {

/// The n-th allocation from now on (from 1) throws std::bad_alloc, and so do all that follow when Lasting is
/// set. 0: none.
void FailAllocation(long Number, bool Lasting) noexcept;
/// Ends that; true when an allocation has failed.
bool StopFailing() noexcept;
/// Blocks that are allocated now.
long LiveBlocks() noexcept;

} // namespace unitlib::test
