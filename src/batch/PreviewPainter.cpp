#include "batch/PreviewPainter.h"

#include "batch/Options.h"

#include <algorithm>
#include <dlfcn.h>
#include <filesystem>
#include <system_error>

namespace
{
constexpr const char* ModuleName = "/korvanta-painter.so";
constexpr const char* InstalledFolder = KORVANTA_MODULE_FOLDER; ///< from the folder of an installed program
constexpr std::int32_t LargestPicture = 10000; // pixels; a setting beyond it is no size of a picture

const SurfacePainter* Current = nullptr;

/// Beside the program, or where an installation keeps it.
std::string ModulePath()
{
    const std::string installed = ProgramFolder() + "/" + InstalledFolder + ModuleName;
    std::error_code unreadable;
    return std::filesystem::exists(installed, unreadable) ? installed : ProgramFolder() + ModuleName;
}

const SurfacePainter* LoadPainter(std::string& reason)
{
    void* const module = ::dlopen(ModulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const entry = module == nullptr ? nullptr : ::dlsym(module, PainterEntry);
    if (entry == nullptr) {
        const char* const error = ::dlerror();
        reason = error == nullptr ? "the module tells no painter" : error;
        if (module != nullptr) {
            ::dlclose(module);
        }
        return nullptr;
    }
    // cppcheck-suppress resourceLeak ; the painter is used as long as the program runs
    return reinterpret_cast<PainterEntryRoutine>(entry)();
}
} // namespace

const SurfacePainter* Painter()
{
    return Current;
}

bool StartPainter(std::int32_t width, std::int32_t height, std::string& reason)
{
    Current = LoadPainter(reason);
    if (Current != nullptr) {
        Current->Resize(Picture::Preview, std::clamp(width, 1, LargestPicture),
                        std::clamp(height, 1, LargestPicture));
    }
    return Current != nullptr;
}

void StopPainter()
{
    Current = nullptr;
}
