#include "import_counter.h"

#include <cstddef>

namespace quillo::windows_tests {

void** ImportOf(std::string_view function) {
    auto* const module = reinterpret_cast<std::byte*>(GetModuleHandleW(nullptr));
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(module);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(module + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(module + imports.VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(module + library->OriginalFirstThunk);
        auto* place = reinterpret_cast<IMAGE_THUNK_DATA*>(module + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* const known = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(module + name->u1.AddressOfData);
            if (function == reinterpret_cast<const char*>(known->Name))
                return reinterpret_cast<void**>(&place->u1.Function);
        }
    }
    return nullptr;
}

void Redirect(void** import, void* function) {
    DWORD before = 0;
    VirtualProtect(import, sizeof *import, PAGE_READWRITE, &before);
    *import = function;
    VirtualProtect(import, sizeof *import, before, &before);
}

}  // namespace quillo::windows_tests
