// Puts a function of the test's own in the place of one that a module imports, for as long as the object lives: so that
// a module can be shown a system that fails.
#pragma once

#include <gtest/gtest.h>
#include <win.h>

#include <cstring>

class ReplacedImport {
public:
    // `module` imports the function by name, from whatever library; if it does not, the test fails.
    template <typename Function>
    ReplacedImport(const wchar_t* module, const char* function, Function* replacement) {
        slot_ = FindSlot(reinterpret_cast<BYTE*>(GetModuleHandleW(module)), function);
        EXPECT_NE(slot_, nullptr) << function;
        if (slot_) original_ = Put(reinterpret_cast<ULONG_PTR>(replacement));
    }
    ~ReplacedImport() {
        if (slot_) Put(original_);
    }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;

private:
    template <typename T>
    static T* At(BYTE* base, ULONG_PTR offset) {
        return reinterpret_cast<T*>(base + offset);
    }

    // A linker need not align its tables as the records in them would be: nothing here counts on it.
    __attribute__((no_sanitize("undefined"))) static ULONG_PTR* FindSlot(BYTE* base, const char* function) {
        if (!base) return nullptr;
        const auto* header = At<IMAGE_NT_HEADERS>(base, static_cast<DWORD>(At<IMAGE_DOS_HEADER>(base, 0)->e_lfanew));
        const DWORD imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
        for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(base, imports); library->Name; ++library) {
            const auto* names = At<ULONG_PTR>(base, library->OriginalFirstThunk);
            auto* slots = At<ULONG_PTR>(base, library->FirstThunk);
            for (; *names; ++names, ++slots) {
                if (IMAGE_SNAP_BY_ORDINAL(*names)) continue;
                const char* name = reinterpret_cast<const char*>(At<IMAGE_IMPORT_BY_NAME>(base, *names)->Name);
                if (std::strcmp(name, function) == 0) return slots;
            }
        }
        return nullptr;
    }

    __attribute__((no_sanitize("undefined"))) ULONG_PTR Put(ULONG_PTR value) {
        DWORD protection = 0;
        VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
        const ULONG_PTR before = *slot_;
        *slot_ = value;
        VirtualProtect(slot_, sizeof *slot_, protection, &protection);
        return before;
    }

    ULONG_PTR* slot_ = nullptr;
    ULONG_PTR original_ = 0;
};
