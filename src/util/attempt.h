#pragma once

#include <exception>

namespace quillo {

/// Runs a step that can fail, for lack of memory for example, without any effect on what follows. False if it failed.
template <typename Step>
bool Try(const Step& step) {
    try {
        step();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace quillo
