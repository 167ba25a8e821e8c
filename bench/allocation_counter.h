// Counts every heap allocation of the program that includes it, so that a benchmark or a test
// can show that a run makes none. Include it in exactly one source file of a program: it
// replaces the global operator new and delete (all forms, so that a sanitizer sees matching
// pairs), each a plain malloc and free.
#pragma once

#include <atomic>
#include <cstdlib>
#include <new>

// The replaced delete is inlined beside the library's new; both sides here are malloc and free.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

namespace karvane::bench {
inline std::atomic<long long> allocations{0};
} // namespace karvane::bench

void* operator new(std::size_t size) {
    ++karvane::bench::allocations;
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++karvane::bench::allocations;
    return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }
