#include "util/string_builder.h"

#include <algorithm>
#include <limits>
#include <new>

#include "util/class_error.h"

namespace quillo {

void CStringBuilder::SetBufferBump(std::int32_t bytes) {
    if (bytes <= 0) return;
    if (bytes == std::numeric_limits<std::int32_t>::max()) throw std::bad_array_new_length();
    bump_ = bytes + bytes % 2;
}

void CStringBuilder::SetCapacity(std::int32_t bytes) {
    if (bytes <= 0) return;
    const std::int64_t rounded = (std::int64_t{bytes} + bump_ - 1) / bump_ * bump_;
    if (rounded > std::numeric_limits<std::int32_t>::max()) throw std::bad_array_new_length();
    capacity_ = static_cast<std::int32_t>(rounded);
    length_ = std::min(length_, capacity_);
    if (buffer_.size() > Units(capacity_)) buffer_.resize(Units(capacity_));
}

void CStringBuilder::GrowTo(std::int64_t bytes) {
    if (bytes <= capacity_) return;
    if (bytes > std::numeric_limits<std::int32_t>::max()) throw std::bad_array_new_length();
    SetCapacity(static_cast<std::int32_t>(bytes));
}

std::int32_t CStringBuilder::EnsureCapacity(std::int32_t bytes) {
    GrowTo(bytes);
    return capacity_;
}

std::u16string CStringBuilder::Chars(std::int32_t index) const {
    if (!IsCharsIndex(index)) throw ClassError("CStringBuilder.Chars", "Tried reading character past end of buffer.");
    const auto at = static_cast<std::size_t>(index);
    return std::u16string(1, at < buffer_.size() ? buffer_[at] : char16_t{0});
}

void CStringBuilder::SetChars(std::int32_t index, std::u16string_view character) {
    if (!IsCharsIndex(index)) {
        throw ClassError("CStringBuilder.Chars", "Tried assigning character past end of buffer.");
    }
    if (character.empty()) throw EmptyTextError();
    Overwrite(static_cast<std::size_t>(index), character.substr(0, 1));
}

void CStringBuilder::SetLength(std::int32_t characters) {
    if (characters < 0) return;
    const std::int64_t bytes = std::int64_t{characters} * 2;
    GrowTo(bytes);
    length_ = static_cast<std::int32_t>(bytes);
    if (buffer_.size() < Units(length_)) buffer_.resize(Units(length_));
}

CStringBuilder& CStringBuilder::Append(std::u16string_view text) {
    if (text.empty()) return *this;
    const std::int64_t bytes = length_ + static_cast<std::int64_t>(text.size()) * 2;
    GrowTo(bytes);
    Overwrite(Units(length_), text);
    length_ = static_cast<std::int32_t>(bytes);
    return *this;
}

CStringBuilder& CStringBuilder::Insert(std::int32_t index, std::u16string_view text) {
    if (index < 0 || std::int64_t{index} * 2 > capacity_) {
        throw ClassError("CStringBuilder.Insert", "Argument(s) out of range.");
    }
    if (text.empty()) return *this;
    const std::int64_t bytes = length_ + static_cast<std::int64_t>(text.size()) * 2;
    GrowTo(bytes);
    const auto at = static_cast<std::size_t>(index);
    if (at <= Units(length_)) {
        buffer_.resize(Units(length_));
        buffer_.insert(at, text);
    } else {
        Overwrite(at, text);
    }
    length_ = static_cast<std::int32_t>(bytes);
    if (buffer_.size() < Units(length_)) buffer_.resize(Units(length_));
    return *this;
}

CStringBuilder& CStringBuilder::Remove(std::int32_t index, std::int32_t count) {
    const std::int64_t end = std::int64_t{index} + count;
    if (index < 0 || count < 0 || end * 2 > std::int64_t{length_} + 2) {
        throw ClassError("CStringBuilder.Remove", "Argument(s) out of range.");
    }
    if (end * 2 < length_) {
        const auto begin = buffer_.begin();
        std::copy(begin + static_cast<std::ptrdiff_t>(end), begin + length_ / 2, begin + index);
    }
    length_ = static_cast<std::int32_t>(std::max<std::int64_t>(length_ - std::int64_t{count} * 2, 0));
    return *this;
}

// Writes the text from `at` on, up to the end of the buffer.
void CStringBuilder::Overwrite(std::size_t at, std::u16string_view text) {
    const std::size_t end = Units(capacity_);
    if (at >= end) return;
    text = text.substr(0, end - at);
    if (buffer_.size() < at) buffer_.resize(at);
    const std::size_t over = std::min(text.size(), buffer_.size() - at);
    std::copy_n(text.begin(), over, buffer_.begin() + static_cast<std::ptrdiff_t>(at));
    buffer_.append(text.substr(over));
}

}  // namespace quillo
