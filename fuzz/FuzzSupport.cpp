#include "FuzzSupport.h"

#include "formats/TransactionKeys.h"
#include "recognize/CalendarDate.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tavvel::fuzz {

std::optional<std::string_view> capped(const std::uint8_t* data, std::size_t size) {
    if (size > kMaxInput)
        return std::nullopt;
    // A null pointer with size 0 is what libFuzzer passes for the empty input.
    return size == 0 ? std::string_view()
                     : std::string_view(reinterpret_cast<const char*>(data), size);
}

void fail(std::string_view what, std::string_view detail) {
    std::fprintf(stderr, "fuzz check failed: %.*s\n", static_cast<int>(what.size()), what.data());
    if (!detail.empty())
        std::fprintf(stderr, "  with: %.*s\n", static_cast<int>(detail.size()), detail.data());
    std::abort();
}

const Configuration& configuration() {
    static const Configuration config = [] {
        auto loaded = Configuration::load(TAVVEL_CONFIG_FILE);
        if (!loaded)
            fail("cannot read the configuration", TAVVEL_CONFIG_FILE);
        return *loaded;
    }();
    return config;
}

Date day(int year, int month, int d) {
    return localMidnight(year, month, d);
}

Context freshContext(const std::filesystem::path& folder) {
    static const bool zoneRead = (useProcessTimeZone(), true);
    (void)zoneRead;
    Places places;
    places.prefsFolder = folder / "config" / "Tavvel";
    places.home = folder / "home";
    places.documents = places.home / "Documents";
    Date noon{day(2024, 6, 1).seconds + 12 * 3600};
    return Context(configuration(), Clock::fixed(noon), places);
}

Scratch::Scratch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavvel-fuzz-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("cannot create a temporary folder");
    path_ = pattern;
}

Scratch::~Scratch() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::filesystem::path Scratch::write(std::string_view name, std::string_view bytes) const {
    std::filesystem::path file = path_ / name;
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
    return file;
}

BatchDialogs silentDialogs(std::optional<std::string> outputPath) {
    return BatchDialogs(std::move(outputPath), [](const BatchMessage& message) {
        check(!message.question || !message.buttons.empty(), "a question without buttons");
    });
}

void checkDateInRange(const Context& ctx, const Dictionary& record, Date from, Date to) {
    const Value* written = find(record, txkey::date);
    check(written && written->isString(), "a record without a date");
    auto date = parseDateWithPattern(written->text(), ctx.output.longDatePattern());
    check(date.has_value(), "a record date that does not read back", written->text());
    check(*date >= from && *date <= to, "a record dated outside the range", written->text());
}

void checkErrorRecord(const Dictionary& record) {
    const Value* message = find(record, txkey::errorMessage);
    const Value* text = find(record, txkey::errorText);
    check(message && message->isString() && !message->text().empty(),
          "an error record without a message");
    check(text && text->isString(), "an error record without its text");
}

} // namespace tavvel::fuzz
