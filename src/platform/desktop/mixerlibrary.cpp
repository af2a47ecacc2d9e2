#include "platform/desktop/mixerlibrary.h"

#include <QLibrary>

#include <optional>

namespace {
void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/, const char* /*format*/,
                ...)
{
}

// The libraries below write what they miss to the standard error output. A person is told by us instead.
void Silence(QLibrary& library)
{
    using SetSynthesizerLog = void* (*)(int level, void* function, void* data);
    constexpr int Levels = 5;
    const auto setSynthesizerLog = reinterpret_cast<SetSynthesizerLog>(library.resolve("fluid_set_log_function"));
    for (int level = 0; setSynthesizerLog && level < Levels; ++level)
        setSynthesizerLog(level, nullptr, nullptr);

    using SetDeviceLog = int (*)(decltype(&SayNothing));
    const auto setDeviceLog = reinterpret_cast<SetDeviceLog>(library.resolve("snd_lib_error_set_handler"));
    if (setDeviceLog) setDeviceLog(SayNothing);
}

std::optional<MixerLibrary> Loaded()
{
    QLibrary library(u"SDL2_mixer-2.0"_s, 0);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load()) return {};
    MixerLibrary functions;
#define ORRELIN_MIXER_FUNCTION(name)                                                                                   \
    functions.name = reinterpret_cast<decltype(functions.name)>(library.resolve(#name));                               \
    if (!functions.name) return {};
    ORRELIN_MIXER_FUNCTIONS(ORRELIN_MIXER_FUNCTION)
#undef ORRELIN_MIXER_FUNCTION
    Silence(library);
    return functions;
}
} // namespace

const MixerLibrary* MixerLibrary::Load()
{
    static const std::optional<MixerLibrary> library = Loaded();
    return library ? &*library : nullptr;
}
