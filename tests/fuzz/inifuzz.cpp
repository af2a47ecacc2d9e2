// Any bytes as a settings file: nothing crashes or hangs, a set value is read back, and all other bytes stay.
// libFuzzer's entry point.
#include "fuzz/fuzztarget.h"
#include "platform/profile/inifile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString section = u"DAYS"_s, other = u"FONTNAME"_s, key = u"Color"_s;
    const IniFile before(text);
    const auto changed = before.With(section, key, u"new"_s);
    Require(changed.has_value(), "every file takes a value");
    const IniFile after(changed->Text());
    Require(after.Value(section, key) == u"new"_s, "a value that is set is read back");
    Require(after.Value(section, other) == before.Value(section, other), "other values stay");
    Require(changed->Text().size() + 64 >=
                text.size() - before.Value(section, key).value_or(QString()).toUtf8().size() - 64,
            "nothing else goes");
    Require(changed->With(section, key, u"new"_s)->Text() == changed->Text(), "the same value again changes nothing");
    return 0;
}
