#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace quillo {

/// Raised when a text that must hold a character is empty.
class EmptyTextError : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "The text is empty."; }
};

/// A growable text buffer. Capacity, BufferBump and EnsureCapacity count bytes (two per code unit); Length and all
/// indexes and counts are in characters. Misuse raises ClassError and changes nothing; more than 2^31 - 1 bytes raise
/// std::bad_array_new_length. The drop of files on a note only appends; the other members complete the class for other
/// users.
class CStringBuilder {
  public:
    [[nodiscard]] std::int32_t BufferBump() const { return bump_; }
    /// The granularity of growth. Values below 1 are ignored, odd ones raised by one. Does not reallocate.
    void SetBufferBump(std::int32_t bytes);

    [[nodiscard]] std::int32_t Capacity() const { return capacity_; }
    /// Rounded up to a multiple of BufferBump; a longer text is cut. Values below 1 are ignored.
    void SetCapacity(std::int32_t bytes);

    /// One character. Indexes from Length to 2 * Length - 1 are allowed (intended: the check counts bytes); a character
    /// outside the buffer reads as the code unit 0.
    [[nodiscard]] std::u16string Chars(std::int32_t index) const;
    /// Stores the first code unit of a text; raises EmptyTextError if there is none. Indexes are checked as in Chars;
    /// outside the buffer nothing is written.
    void SetChars(std::int32_t index, std::u16string_view character);

    [[nodiscard]] std::int32_t Length() const { return length_ / 2; }
    /// Increases the capacity if needed; the new characters are the buffer's old content. Values below 0 are ignored.
    void SetLength(std::int32_t characters);

    CStringBuilder& Append(std::u16string_view text);
    /// Returns the new capacity.
    std::int32_t EnsureCapacity(std::int32_t bytes);
    /// Indexes up to the capacity in bytes / 2 are allowed (intended: not only up to Length). Past Length the text is
    /// written behind the end, and the length increases nevertheless.
    CStringBuilder& Insert(std::int32_t index, std::u16string_view text);
    /// One character past the end may be removed too (intended): removing 1 at 3 from "abc" leaves "ab".
    CStringBuilder& Remove(std::int32_t index, std::int32_t count);
    [[nodiscard]] std::u16string ToString() const { return buffer_.substr(0, Units(length_)); }

  private:
    static constexpr std::int32_t kDefaultBump = 2048;

    [[nodiscard]] static constexpr std::size_t Units(std::int32_t bytes) { return static_cast<std::size_t>(bytes) / 2; }
    [[nodiscard]] bool IsCharsIndex(std::int32_t index) const { return index >= 0 && index < length_; }
    void GrowTo(std::int64_t bytes);
    void Overwrite(std::size_t at, std::u16string_view text);

    std::int32_t bump_ = kDefaultBump;
    std::int32_t capacity_ = kDefaultBump;
    std::int32_t length_ = 0;  // bytes
    // The part of the buffer that has been written, at least length_ and at most capacity_. The rest is zero and takes
    // no memory; memory grows geometrically, however small the bump is.
    std::u16string buffer_;
};

}  // namespace quillo
