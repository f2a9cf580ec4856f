// Replaces the exceptions that the C++ library throws when it is misused, for the program only. GCC's own helpers throw
// std::logic_error and related types, whose messages link two more implementations of narrow strings: a tenth of the
// program apart from its pictures. Here the same faults throw an exception without a text, which is caught at the same
// boundaries.
#include <exception>
#include <new>

#ifdef __GLIBCXX__

namespace {

class LibraryMisuse : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "misuse of the C++ library"; }
};

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the library's.
namespace std {

void __throw_bad_alloc() {
    throw bad_alloc();
}
void __throw_bad_array_new_length() {
    throw bad_array_new_length();
}
void __throw_logic_error(const char* /*text*/) {
    throw LibraryMisuse();
}
void __throw_length_error(const char* /*text*/) {
    throw LibraryMisuse();
}
void __throw_out_of_range(const char* /*text*/) {
    throw LibraryMisuse();
}
void __throw_out_of_range_fmt(const char* /*format*/, ...) {
    throw LibraryMisuse();
}

}  // namespace std
// NOLINTEND(bugprone-reserved-identifier)

#endif
