// Whole runs from scenario files: statement bytes, settings, the run form, the scripted
// answers, and the expected output file and closing message.

#include "app/Controller.h"
#include "knowledge/Formats.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace tavvel {
namespace {

namespace fs = std::filesystem;

struct Section {
    std::string name;
    std::string argument;
    std::string body;
};

std::vector<Section> sections(const std::string& text) {
    std::vector<Section> out;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        if (line.rfind("=== ", 0) == 0) {
            std::string head = line.substr(4);
            std::size_t space = head.find(' ');
            out.push_back({head.substr(0, space),
                           space == std::string::npos ? "" : head.substr(space + 1), ""});
        } else if (!out.empty()) {
            out.back().body += line + "\n";
        }
    }
    return out;
}

std::vector<std::string> lines(const std::string& body) {
    std::vector<std::string> out;
    std::istringstream in(body);
    for (std::string line; std::getline(in, line);)
        if (!line.empty() && line[0] != '#')
            out.push_back(line);
    return out;
}

std::string unescape(std::string text) {
    for (auto [from, to] : {std::pair{"\\r", "\r"}, std::pair{"\\n", "\n"}})
        for (std::size_t at = text.find(from); at != std::string::npos;
             at = text.find(from, at + 1))
            text.replace(at, 2, to);
    return text;
}

std::string toCrlf(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    return out;
}

std::pair<std::string, std::string> split(const std::string& text, const std::string& by) {
    std::size_t at = text.find(by);
    if (at == std::string::npos)
        return {text, ""};
    return {text.substr(0, at), text.substr(at + by.size())};
}

// UTF-8 text (up to three-byte sequences) as UTF-16 with a byte-order mark.
std::string toUtf16(const std::string& text, bool bigEndian) {
    std::string out = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (std::size_t i = 0; i < text.size();) {
        auto c = static_cast<unsigned char>(text[i]);
        std::size_t length = c < 0x80 ? 1 : c < 0xE0 ? 2 : 3;
        unsigned unit = length == 1 ? c : c & (length == 2 ? 0x1F : 0x0F);
        for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
            unit = unit << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3F);
        i += length;
        char hi = static_cast<char>(unit >> 8), lo = static_cast<char>(unit & 0xFF);
        out += bigEndian ? hi : lo;
        out += bigEndian ? lo : hi;
    }
    return out;
}

// UTF-8 text (Latin-1 letters and the euro sign) as Windows-1252.
std::string toCp1252(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) {
            out += text[i];
        } else if (text.compare(i, 3, "\xE2\x82\xAC") == 0) {
            out += '\x80';
            i += 2;
        } else {
            out += static_cast<char>((c & 0x1F) << 6 | (text[i + 1] & 0x3F));
            ++i;
        }
    }
    return out;
}

// The input section's bytes as the flags after its name ask: crlf, then no-final-line-end,
// then cp1252, utf16le or utf16be (with no-mark: without the byte-order mark) or utf8-mark,
// then nul-padded.
std::string inputBytes(const std::string& body, const std::string& flags) {
    auto has = [&](std::string_view flag) {
        return (" " + flags + " ").find(" " + std::string(flag) + " ") != std::string::npos;
    };
    std::string bytes = has("crlf") ? toCrlf(body) : body;
    while (has("no-final-line-end") && !bytes.empty() &&
           (bytes.back() == '\n' || bytes.back() == '\r'))
        bytes.pop_back();
    if (has("cp1252"))
        bytes = toCp1252(bytes);
    if (has("utf16le") || has("utf16be"))
        bytes = toUtf16(bytes, has("utf16be")).substr(has("no-mark") ? 2 : 0);
    if (has("utf8-mark"))
        bytes = "\xEF\xBB\xBF" + bytes;
    if (has("nul-padded"))
        bytes += std::string(64, '\0');
    return bytes;
}

Array list(const std::string& text, const std::string& by = "|") {
    Array out;
    std::string rest = text;
    while (!rest.empty()) {
        auto [item, tail] = split(rest, by);
        out.emplace_back(item);
        rest = tail;
    }
    return out;
}

class Scenario {
public:
    explicit Scenario(const fs::path& file) : file_(file) {}
    void run();

private:
    void applyPrefs(const std::string& body);
    void addLayout(const std::string& line);
    void addInstruction(const std::string& line);
    void addAmountInstruction(const std::string& line);
    void addInputFormat(const std::string& line);
    void applyRun(const std::string& body, Controller& controller);
    void script(const std::string& body);

    fs::path file_;
    test::TestContext t_;
    test::ScriptedDialogs dialogs_;
    fs::path output_;
    fs::path continuation_;
};

// "key=value;key=value;...", with "splits=CAT/MEMO/AMOUNT,..." for splits.
Dictionary record(const std::string& line) {
    Dictionary out;
    for (const Value& pair : list(line, ";")) {
        auto [key, value] = split(pair.text(), "=");
        if (key != "splits") {
            out.insert_or_assign(key, Value(value));
            continue;
        }
        Array splits;
        for (const Value& one : list(value, ",")) {
            Array parts = list(one.text(), "/");
            parts.resize(3);
            splits.emplace_back(
                Dictionary{{"category", parts[0]}, {"memo", parts[1]}, {"amount", parts[2]}});
        }
        out.insert_or_assign("splits", Value(splits));
    }
    return out;
}

void Scenario::addInstruction(const std::string& line) {
    Array all = t_.ctx.prefs.objectForKey(prefkey::Instructions)
                    ? t_.ctx.prefs.objectForKey(prefkey::Instructions)->array()
                    : Array{};
    all.emplace_back(record(line));
    t_.ctx.prefs.setObject(prefkey::Instructions, Value(all));
}

// Adds an amount instruction to the last instruction.
void Scenario::addAmountInstruction(const std::string& line) {
    Array all = t_.ctx.prefs.objectForKey(prefkey::Instructions)->array();
    Dictionary last = all.back().dictionary();
    Array amounts = find(last, "amounts") ? find(last, "amounts")->array() : Array{};
    amounts.emplace_back(record(line));
    last.insert_or_assign("amounts", Value(amounts));
    all.back() = Value(last);
    t_.ctx.prefs.setObject(prefkey::Instructions, Value(all));
}

// "NAME SEPARATOR ITEM,ITEM,...": a delimited layout writing every item listed.
void Scenario::addLayout(const std::string& line) {
    auto [name, rest] = split(line, " ");
    auto [separator, itemsAndType] = split(rest, " ");
    auto [items, type] = split(itemsAndType, " ");
    Array order = list(items, ",");
    Array present(order.size(), Value(true));
    Array formats = t_.ctx.prefs.objectForKey(prefkey::OutputFormats)
                        ? t_.ctx.prefs.objectForKey(prefkey::OutputFormats)->array()
                        : Array{Value(Dictionary{{"Name", Value("QIF")}})};
    formats.emplace_back(Dictionary{{"Name", Value(name)},
                                    {"Separator", Value(separator)},
                                    {"Order", Value(order)},
                                    {"Present", Value(present)}});
    if (!type.empty())
        formats.back().get<Dictionary>()->insert_or_assign("Type", Value(type));
    t_.ctx.prefs.setObject(prefkey::OutputFormats, Value(formats));
}

// A format value: whole numbers are positions, "true" and "false" flags; \n, \t, \r, \s (a
// blank) and \; stand for what they name.
Value formatValue(const std::string& text) {
    if (!text.empty() && text.find_first_not_of("0123456789") == std::string::npos)
        return Value(static_cast<std::int64_t>(std::stoll(text)));
    if (text == "true" || text == "false")
        return Value(text == "true");
    const std::map<char, char> escapes{
        {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'s', ' '}, {';', ';'}};
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto escape = escapes.find(i + 1 < text.size() && text[i] == '\\' ? text[i + 1] : '\0');
        out += escape == escapes.end() ? text[i] : escape->second;
        i += escape == escapes.end() ? 0 : 1;
    }
    return Value(out);
}

// The prefs line "format KEY=VALUE;KEY=VALUE;...": a stored input format.
void Scenario::addInputFormat(const std::string& line) {
    Dictionary format;
    std::string pair;
    for (std::size_t i = 0; i <= line.size(); ++i) {
        if (i < line.size() && !(line[i] == ';' && (i == 0 || line[i - 1] != '\\'))) {
            pair += line[i];
            continue;
        }
        auto [key, value] = split(pair, "=");
        if (!key.empty())
            format.insert_or_assign(key, formatValue(value));
        pair.clear();
    }
    Formats(t_.ctx.prefs).addFormat(format);
}

void Scenario::applyPrefs(const std::string& body) {
    TvPrefs& prefs = t_.ctx.prefs;
    for (const std::string& l : lines(body)) {
        auto [verb, rest] = split(l, " ");
        if (verb == "option") {
            addOption(prefs, rest);
        } else if (verb == "set") {
            auto [key, value] = split(rest, "=");
            prefs.setObject(key, Value(value));
        } else if (verb == "categories") {
            prefs.setObject(prefkey::Categories, Value(list(rest)));
        } else if (verb == "accounts") {
            Array accounts;
            for (const Value& a : list(rest)) {
                auto [name, type] = split(a.text(), ":");
                accounts.emplace_back(Dictionary{{"Name", Value(name)}, {"Type", Value(type)}});
            }
            prefs.setObject(prefkey::Accounts, Value(accounts));
        } else if (verb == "securities") {
            Array securities;
            for (const Value& entry : list(rest)) {
                auto [name, symbol] = split(entry.text(), ":");
                securities.emplace_back(
                    Dictionary{{"Name", Value(name)}, {"Symbol", Value(symbol)}});
            }
            prefs.setObject(prefkey::Securities, Value(securities));
        } else if (verb == "instruction") {
            addInstruction(rest);
        } else if (verb == "amount-instruction") {
            addAmountInstruction(rest);
        } else if (verb == "layout") {
            addLayout(rest);
        } else if (verb == "format") {
            addInputFormat(rest);
        } else {
            FAIL() << "unknown prefs line: " << l;
        }
    }
}

void Scenario::applyRun(const std::string& body, Controller& controller) {
    RunForm& form = controller.form();
    for (const std::string& l : lines(body)) {
        auto [verb, rest] = split(l, " ");
        if (verb == "range" && rest == "all") {
            form.chooseRange(0);
        } else if (verb == "range" && rest == "last-month") {
            form.chooseRange(1);
        } else if (verb == "range") {
            auto [from, to] = split(rest, " ");
            form.chooseRange(2);
            form.setDateFrom(from);
            form.setDateTo(to);
        } else if (verb == "account") {
            form.setAccountText(rest);
        } else if (verb == "output-format") {
            form.chooseOutputFormat(rest);
        } else if (verb == "qif-type") {
            form.chooseQifType(std::stoi(rest));
        } else if (verb == "qfx-type") {
            form.chooseQfxType(std::stoi(rest));
        } else if (verb == "same-date") {
            form.setSameDate(true);
            form.setOutputDate(rest);
        } else if (verb == "same-number") {
            form.setSameNumber(true);
            form.setOutputNumber(rest);
        } else if (verb == "append") {
            form.setAppendSwitch(rest == "on");
        } else if (verb != "clock") {
            FAIL() << "unknown run line: " << l;
        }
    }
}

// "ACTION [field=value ...]": edits the form, then answers with the action.
std::function<ConfirmAction(ConfirmForm&)> confirmHandler(const std::string& line) {
    auto [action, edits] = split(line, " ");
    return [action = action, edits = edits](ConfirmForm& form) {
        for (const Value& edit : list(edits, " ")) {
            auto [field, value] = split(edit.text(), "=");
            if (field == "category")
                form.setCategory(value);
            else if (field == "desc")
                form.setDescription(value);
            else if (field == "memo")
                form.setMemo(value);
            else if (field == "step-date")
                form.stepDate(std::stoi(value));
        }
        const std::map<std::string, ConfirmAction> actions{
            {"ok", ConfirmAction::ok},
            {"skip", ConfirmAction::skip},
            {"skip-rest", ConfirmAction::skipRemaining},
            {"back", ConfirmAction::back},
            {"cancel", ConfirmAction::cancel},
            {"swap", ConfirmAction::swapDescriptionAndMemo},
            {"add-instruction", ConfirmAction::addInstruction},
            {"add-amount", ConfirmAction::addAmountInstruction}};
        return actions.at(action);
    };
}

std::function<NewInstructionAction(NewInstructionForm&)>
newInstructionHandler(const std::string& line) {
    auto [action, edits] = split(line, " ");
    return [action = action, edits = edits](NewInstructionForm& form) {
        for (const Value& edit : list(edits, " ")) {
            auto [field, value] = split(edit.text(), "=");
            std::replace(value.begin(), value.end(), '_', ' ');
            if (field == "match")
                form.editMatchText(value);
            else if (field == "category")
                form.setCategory(value);
            else if (field == "desc") {
                form.setUseDescription(true);
                form.setNewDescription(value);
            } else if (field == "confirm")
                form.setConfirm(value == "Y");
        }
        if (action == "cancel")
            return NewInstructionAction::cancel;
        if (action == "save")
            return NewInstructionAction::save;
        return NewInstructionAction::useAsRead;
    };
}

void Scenario::script(const std::string& body) {
    for (const std::string& l : lines(body)) {
        auto [verb, rest] = split(l, " ");
        auto [title, answer] = split(rest, " -> ");
        if (verb == "alert")
            dialogs_.expectAlert(title);
        else if (verb == "ask")
            dialogs_.expectAsk(title, std::stoul(answer));
        else if (verb == "save" || verb == "append")
            dialogs_.expectFile(verb, output_.string());
        else if (verb == "confirm")
            dialogs_.expectConfirm(confirmHandler(rest));
        else if (verb == "new-instruction")
            dialogs_.expectNewInstruction(newInstructionHandler(rest));
        else if (verb == "cancel-question")
            dialogs_.expectCancelQuestion(rest == "stop"    ? CancelChoice::stopNow
                                          : rest == "later" ? CancelChoice::finishLater
                                                            : CancelChoice::goOn);
        else if (verb == "save-continuation")
            dialogs_.expectFile("save", rest == "cancel" ? std::nullopt
                                                         : std::optional(continuation_.string()));
        else if (verb == "error")
            dialogs_.expectErrorWarning(unescape(title), answer == "skip");
        else
            FAIL() << "unknown dialog line: " << l;
    }
}

void Scenario::run() {
    auto text = readWholeFile(file_);
    ASSERT_TRUE(text) << file_;
    std::vector<Section> parts = sections(*text);
    std::map<std::string, const Section*> byName;
    for (const Section& s : parts)
        byName[s.name == "expect" ? "expect " + s.argument : s.name] = &s;
    ASSERT_TRUE(byName.count("input")) << "a scenario needs an input";
    if (byName.count("run"))
        for (const std::string& l : lines(byName["run"]->body))
            if (l.rfind("clock ", 0) == 0)
                t_.ctx.clock =
                    test::fixedClock(std::stoi(l.substr(6, 4)), std::stoi(l.substr(11, 2)),
                                     std::stoi(l.substr(14, 2)));
    t_.ctx.prefs.setObject(prefkey::Categories, Value(Array{}));
    t_.ctx.prefs.setObject(prefkey::DescriptionOutput, Value("%d"));
    t_.ctx.prefs.setObject(prefkey::MemoOutput, Value("%m"));
    if (byName.count("prefs"))
        applyPrefs(byName["prefs"]->body);

    const Section& input = *byName["input"];
    std::string name = split(input.argument, " ").first;
    std::string bytes = inputBytes(input.body, split(input.argument, " ").second);
    fs::path statement = t_.folder.path() / name;
    output_ = t_.folder.path() / "out" / "output.qif";
    continuation_ = t_.folder.path() / "out" / "later.tvcn";
    fs::create_directories(output_.parent_path());
    ASSERT_TRUE(writeFileAtomically(statement, bytes));
    if (byName.count("existing")) {
        ASSERT_TRUE(writeFileAtomically(output_, byName["existing"]->body));
    }
    if (byName.count("dialogs"))
        script(byName["dialogs"]->body);

    Controller controller(t_.ctx, dialogs_);
    try {
        Intake intake = controller.actuallyProcessFile(statement.string());
        if (intake == Intake::formReady) {
            if (byName.count("run")) {
                applyRun(byName["run"]->body, controller);
            }
            ASSERT_TRUE(controller.form().processEnabled()) << "the process button is disabled";
            controller.processTheTransactions();
        }
    } catch (const test::UnexpectedDialog&) {
        return; // already reported
    }
    EXPECT_TRUE(dialogs_.done()) << "not every scripted answer was used";
    if (byName.count("expect output")) {
        auto written = readWholeFile(output_);
        ASSERT_TRUE(written) << "no output file";
        EXPECT_EQ(*written, byName["expect output"]->body);
    }
    if (byName.count("expect no output")) {
        auto before =
            byName.count("existing") ? std::optional(byName["existing"]->body) : std::nullopt;
        EXPECT_EQ(readWholeFile(output_), before);
    }
    if (byName.count("expect continuation")) {
        PlistRead saved = readPropertyListFile(continuation_);
        ASSERT_TRUE(saved.ok()) << "no continuation file";
        for (const std::string& l : lines(byName["expect continuation"]->body)) {
            auto [key, value] = split(l, "=");
            const Value* v = find(saved.value.dictionary(), key);
            ASSERT_TRUE(v) << key;
            EXPECT_EQ(v->isString() ? v->text() : v->describe(), unescape(value)) << key;
        }
    }
    if (byName.count("expect message")) {
        std::string expected = unescape(byName["expect message"]->body);
        expected.pop_back(); // the section's last line end
        ASSERT_FALSE(dialogs_.shown().empty());
        EXPECT_EQ(dialogs_.last().text, expected);
    }
}

class ScenarioFile : public ::testing::TestWithParam<std::string> {};

TEST_P(ScenarioFile, Runs) {
    Scenario(fs::path(TAVVEL_SOURCE_DIR) / "tests" / "scenarios" / (GetParam() + ".scenario"))
        .run();
}

std::vector<std::string> scenarioNames() {
    std::vector<std::string> names;
    for (const auto& entry :
         fs::directory_iterator(fs::path(TAVVEL_SOURCE_DIR) / "tests" / "scenarios"))
        if (entry.path().extension() == ".scenario")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string testName(const ::testing::TestParamInfo<std::string>& param) {
    std::string name = param.param;
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)))
            c = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(, ScenarioFile, ::testing::ValuesIn(scenarioNames()), testName);

} // namespace
} // namespace tavvel
