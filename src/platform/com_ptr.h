#pragma once

#include <utility>

namespace quillo {

/// Owns one reference to a COM object.
template <typename Interface>
class ComPtr {
  public:
    ComPtr() = default;
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() {
        if (object_ != nullptr) object_->Release();
    }

    [[nodiscard]] Interface* Get() const { return object_; }
    Interface* operator->() const { return object_; }
    Interface& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }
    /// For a call that fills it; allowed only while it is empty.
    [[nodiscard]] Interface** Put() { return &object_; }
    [[nodiscard]] void** PutVoid() { return reinterpret_cast<void**>(&object_); }

  private:
    Interface* object_ = nullptr;
};

}  // namespace quillo
