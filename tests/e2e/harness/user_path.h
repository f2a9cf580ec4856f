#pragma once

#include <string>

#include "platform/win32.h"

namespace quillo::e2e {

/// The user's PATH in the registry, with its type; restored when the object ends.
class UserPath {
  public:
    struct Value {
        std::wstring text;
        DWORD type = REG_NONE;  ///< REG_NONE: there is no such value
        friend bool operator==(const Value&, const Value&) = default;
    };

    UserPath() : before_(Read()) {}
    UserPath(const UserPath&) = delete;
    UserPath& operator=(const UserPath&) = delete;
    ~UserPath() { Write(before_); }

    [[nodiscard]] static Value Read();
    static void Write(const Value& value);

  private:
    Value before_;
};

}  // namespace quillo::e2e
