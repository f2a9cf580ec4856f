#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace quillo {

/// Raised when a text that has to hold a character is empty.
class EmptyTextError : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "The text is empty."; }
};

/// A growable buffer of text. Capacity, BufferBump and EnsureCapacity count bytes (two per code unit); Length and all
/// indexes and counts are in characters. Misuse raises ClassError and changes nothing; more than 2^31 - 1 bytes raise
/// std::bad_array_new_length.
class CStringBuilder {
  public:
    [[nodiscard]] std::int32_t BufferBump() const { return bump_; }
    /// The granularity of growth. Values below 1 are ignored, odd ones raised by one; nothing is reallocated.
    void SetBufferBump(std::int32_t bytes);

    [[nodiscard]] std::int32_t Capacity() const { return capacity_; }
    /// Rounded up to a multiple of BufferBump; a text that is longer is cut. Values below 1 are ignored.
    void SetCapacity(std::int32_t bytes);

    /// One character. Indexes from Length to 2 * Length - 1 are allowed (intended: the check counts bytes); what lies
    /// outside the buffer reads as the code unit 0.
    [[nodiscard]] std::u16string Chars(std::int32_t index) const;
    /// Stores the first code unit of a text, EmptyTextError when it has none. Checked as when reading; outside
    /// the buffer nothing is written.
    void SetChars(std::int32_t index, std::u16string_view character);

    [[nodiscard]] std::int32_t Length() const { return length_ / 2; }
    /// Grows the capacity when needed; characters gained are whatever the buffer holds. Values below 0 are ignored.
    void SetLength(std::int32_t characters);

    CStringBuilder& Append(std::u16string_view text);
    /// The capacity afterwards.
    std::int32_t EnsureCapacity(std::int32_t bytes);
    /// Indexes up to the capacity in bytes / 2 are allowed (intended: not up to Length). Past Length the text lies
    /// behind the end, and the length grows all the same.
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
    // The part of the buffer that was ever written, at least length_ and at most capacity_; the rest is zero and takes
    // no memory, which grows geometrically however small the bump is.
    std::u16string buffer_;
};

}  // namespace quillo
