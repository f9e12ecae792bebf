#pragma once

/// The memory that is allocated and freed.
namespace murbo::Heap {

/// Has what is freed go back to the system, in a program that stays open for days: frames and a codec's
/// working memory are large, short-lived and made on many threads, and would otherwise be kept for
/// allocations to come, several hundred MB after an export. To be called before there is a second thread;
/// without the GNU C library it does nothing.
void keepSmall();

}
