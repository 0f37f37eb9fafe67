// Every text the program shows (titles, messages, buttons, the terminal's errors: the constants
// of the *Texts.h headers of the core and of tavvel-cli) must stand word for word in some
// test's expectations, its placeholders filled with anything, so that a rewording or a broken
// placeholder fails a test. A test that names the constant instead of writing the text out does not
// count: it would follow a rewording.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string contentsOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

char escaped(char c) {
    switch (c) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return c;
    }
}

// The code point written as four hexadecimal digits, in UTF-8.
std::string utf8Of(const std::string& hex) {
    const unsigned long point = std::stoul(hex, nullptr, 16);
    std::string out;
    if (point < 0x80)
        return out += static_cast<char>(point), out;
    if (point < 0x800)
        return out +=
               {static_cast<char>(0xC0 | point >> 6), static_cast<char>(0x80 | (point & 0x3F))},
               out;
    return out +=
           {static_cast<char>(0xE0 | point >> 12), static_cast<char>(0x80 | (point >> 6 & 0x3F)),
            static_cast<char>(0x80 | (point & 0x3F))},
           out;
}

// The escape opening at `at` (its backslash), decoded; `at` ends on its last character.
std::string escapeAt(const std::string& source, std::size_t& at) {
    ++at;
    if (source[at] != 'u' || at + 4 >= source.size())
        return std::string(1, escaped(source[at]));
    std::string hex = source.substr(at + 1, 4);
    at += 4;
    return utf8Of(hex);
}

// The string literal opening at `at` (its quote), decoded; `at` ends past its closing quote.
std::string literalAt(const std::string& source, std::size_t& at) {
    std::string text;
    for (++at; at < source.size() && source[at] != '"'; ++at)
        text += source[at] == '\\' && at + 1 < source.size() ? escapeAt(source, at)
                                                             : std::string(1, source[at]);
    ++at;
    return text;
}

std::size_t pastBlanksAndComments(const std::string& source, std::size_t at) {
    while (at < source.size()) {
        if (std::isspace(static_cast<unsigned char>(source[at])))
            ++at;
        else if (source.compare(at, 2, "//") == 0)
            at = std::min(source.find('\n', at), source.size());
        else
            break;
    }
    return at;
}

// Where what opens at `at` ends when it is a comment or a character literal (so that an
// apostrophe in a comment or '"' opens nothing), else `at` itself.
std::size_t pastCommentOrCharacter(const std::string& source, std::size_t at) {
    std::size_t end = std::string::npos;
    if (source.compare(at, 2, "//") == 0)
        end = source.find('\n', at);
    else if (source.compare(at, 2, "/*") == 0)
        end = source.find("*/", at);
    else if (source[at] == '\'')
        end = source.find('\'', at + (source.compare(at, 2, "'\\") == 0 ? 3 : 2));
    else
        return at;
    return end == std::string::npos ? source.size() : end + 1;
}

// Each run of adjacent string literals of C++ source, joined as the compiler joins them.
std::vector<std::string> literalRuns(const std::string& source) {
    std::vector<std::string> runs;
    for (std::size_t at = 0; at < source.size();) {
        if (std::size_t past = pastCommentOrCharacter(source, at); past != at) {
            at = past;
            continue;
        }
        if (source[at] != '"') {
            ++at;
            continue;
        }
        std::string run = literalAt(source, at);
        for (at = pastBlanksAndComments(source, at); at < source.size() && source[at] == '"';
             at = pastBlanksAndComments(source, at))
            run += literalAt(source, at);
        runs.push_back(std::move(run));
    }
    return runs;
}

struct Message {
    std::string name;
    std::string text;
};

std::vector<Message> messagesIn(const fs::path& header) {
    std::string source = contentsOf(header);
    std::vector<Message> messages;
    static const std::regex declaration(R"(std::string_view\s+(\w+)\s*=\s*)");
    for (auto it = std::sregex_iterator(source.begin(), source.end(), declaration);
         it != std::sregex_iterator(); ++it) {
        std::size_t at = static_cast<std::size_t>(it->position() + it->length());
        if (source[at] != '"')
            continue;
        std::string text = literalAt(source, at);
        for (at = pastBlanksAndComments(source, at); source[at] == '"';
             at = pastBlanksAndComments(source, at))
            text += literalAt(source, at);
        messages.push_back({(*it)[1].str(), text});
    }
    return messages;
}

bool endsWith(const fs::path& file, std::string_view ending) {
    std::string name = file.filename().string();
    return name.size() >= ending.size() &&
           name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
}

// Scenario files and terminal tests write "\r" and "\n" for line breaks, and a terminal test
// continues a long text on the next line after a backslash.
std::string withEscapesRead(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (text[i] != '\\' || std::string_view("rn\"\n").find(next) == std::string_view::npos)
            out += text[i];
        else if (next != '\n')
            out += escaped(text[++i]);
        else
            ++i;
    }
    return out;
}

// What the tests expect, as texts to search: literal runs of the C++ tests, and the whole text
// of scenarios and terminal tests.
std::vector<std::string> expectations(const fs::path& tests) {
    std::vector<std::string> texts;
    for (const auto& entry : fs::recursive_directory_iterator(tests)) {
        const fs::path& file = entry.path();
        if (!entry.is_regular_file() || file.filename() == "MessagesPinnedTest.cpp")
            continue;
        std::string source = contentsOf(file);
        if (endsWith(file, ".cpp") || endsWith(file, ".h")) {
            for (std::string& run : literalRuns(source))
                texts.push_back(std::move(run));
        } else if (endsWith(file, ".scenario") || endsWith(file, ".sh")) {
            texts.push_back(withEscapesRead(source));
            texts.push_back(std::move(source));
        }
    }
    return texts;
}

// The message's pieces between its placeholders.
std::vector<std::string> piecesOf(const std::string& message) {
    static const std::regex placeholder("%@|%ld|%d");
    std::vector<std::string> pieces;
    for (auto it = std::sregex_token_iterator(message.begin(), message.end(), placeholder, -1);
         it != std::sregex_token_iterator(); ++it)
        if (it->length() > 0)
            pieces.push_back(*it);
    return pieces;
}

// The pieces stand in the text in their order, each after the one before it.
bool standsIn(const std::vector<std::string>& pieces, const std::string& text) {
    if (pieces.empty())
        return true;
    for (std::size_t start = text.find(pieces[0]); start != std::string::npos;
         start = text.find(pieces[0], start + 1)) {
        std::size_t at = start + pieces[0].size();
        bool all = true;
        for (std::size_t i = 1; i < pieces.size() && all; ++i) {
            at = text.find(pieces[i], at);
            all = at != std::string::npos;
            at += all ? pieces[i].size() : 0;
        }
        if (all)
            return true;
    }
    return false;
}

// Texts no test writes out yet, by constant name: each is a debt to pay by a test that shows
// it in a real run, then to strike from here. Any other text that no test writes out, a new or
// a reworded one, fails.
const std::set<std::string, std::less<>> notYetPinned{
    // The store without categories at a run's start: start-up always creates them.
    "noCategoriesTitle",
    "noCategories",
    // An investment statement read through without stored securities.
    "needSecurities",
    // A field-match question passed without a selection, and a column matched twice.
    "noTextSelectedTitle",
    "fieldMatchSeparator",
    // Appending without accounts of the statement's kind: the run stops earlier, at no
    // accounts at all, so the run form seems never to show it.
    "hintNoAccountOfType",
    // The terminal's last word on something thrown that is no standard exception: neither the
    // core nor the libraries it uses throw one.
    "unexpectedError",
};

TEST(Messages, EveryShownTextIsWrittenOutInATest) {
    fs::path source(TAVVEL_SOURCE_DIR);
    std::vector<std::string> texts = expectations(source / "tests");
    std::set<std::string, std::less<>> names;
    std::vector<fs::path> headers;
    for (const char* folder : {"src", "cli"})
        for (const auto& entry : fs::recursive_directory_iterator(source / folder))
            if (endsWith(entry.path(), "Texts.h"))
                headers.push_back(entry.path());
    for (const fs::path& header : headers) {
        for (const Message& message : messagesIn(header)) {
            names.insert(message.name);
            std::vector<std::string> pieces = piecesOf(message.text);
            bool pinned = std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
                return standsIn(pieces, text);
            });
            EXPECT_TRUE(pinned || notYetPinned.count(message.name) > 0)
                << header.filename().string() << ": " << message.name
                << " is in no test's expectations: \"" << message.text << "\"";
        }
    }
    EXPECT_GT(names.size(), 100u) << "the texts headers were not found or not read";
    for (const std::string& name : notYetPinned)
        EXPECT_TRUE(names.count(name) > 0) << name << " is listed as not yet pinned but is no text";
}

} // namespace
