#pragma once

namespace quillora::deck::libreoffice {

/// Takes from this process what a stranger's deck must not have, before any other thread exists. Each measure
/// is taken where the system knows it and left out where not: an import is never refused for the lack of one.
///
/// Limits on memory, file sizes, processor time and core dumps; no new programs or processes, no network
/// sockets, no look into other processes (seccomp); the end of this process with that of @p watched, if that
/// is not 0. Returns false when @p watched has ended already.
bool confine(int watched);

} // namespace quillora::deck::libreoffice
