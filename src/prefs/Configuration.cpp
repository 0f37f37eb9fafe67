#include "prefs/Configuration.h"

#include "prefs/PropertyList.h"

namespace tavvel {

std::optional<Configuration> Configuration::load(const std::filesystem::path& file) {
    PlistRead read = readPropertyListFile(file);
    if (!read.ok())
        return std::nullopt;
    return Configuration(std::move(*read.value.get<Dictionary>()));
}

std::filesystem::path Configuration::locateFor(const std::filesystem::path& executable) {
    return executable.parent_path().parent_path() / "share" / "tavvel" / "Info.plist";
}

std::filesystem::path Configuration::locateForRunning(const char* argv0) {
    std::error_code ec;
    auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
    return locateFor(ec ? std::filesystem::absolute(argv0) : self);
}

const Array& Configuration::array(std::string_view key) const {
    static const Array empty;
    const Value* v = value(key);
    return v ? v->array() : empty;
}

const Dictionary& Configuration::dictionary(std::string_view key) const {
    static const Dictionary empty;
    const Value* v = value(key);
    return v ? v->dictionary() : empty;
}

std::vector<std::string> Configuration::strings(std::string_view key) const {
    std::vector<std::string> out;
    for (const Value& item : array(key))
        if (item.isString())
            out.push_back(item.text());
    return out;
}

} // namespace tavvel
