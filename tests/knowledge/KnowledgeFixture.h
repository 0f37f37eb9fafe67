#pragma once
// A preference store on a file in a temporary folder, and the same store read back from its
// file: what a test reopens is what a crash right after the call would have left.

#include "dialogs/Completion.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

namespace tavvel {

inline void PrintTo(const Completion& completion, std::ostream* out) {
    *out << '"' << completion.text << "\" typed " << completion.typedLength;
}

} // namespace tavvel

namespace tavvel::test {

class KnowledgeTest : public ::testing::Test {
protected:
    KnowledgeTest() { prefs() = TvPrefs::open(tc.ctx.places.prefsFolder, kApplicationID); }

    TvPrefs& prefs() { return tc.ctx.prefs; }
    TvPrefs reopened() const { return TvPrefs::open(tc.ctx.places.prefsFolder, kApplicationID); }
    std::filesystem::path prefsFile() const {
        return TvPrefs::pathFor(tc.ctx.places.prefsFolder, kApplicationID);
    }
    const std::filesystem::path& folder() const { return tc.folder.path(); }

    TestContext tc;
    ScriptedDialogs dialogs;
};

inline Array texts(std::initializer_list<const char*> items) {
    Array list;
    for (const char* item : items)
        list.emplace_back(item);
    return list;
}

inline Dictionary record(std::initializer_list<std::pair<const char*, Value>> entries) {
    Dictionary out;
    for (const auto& [key, value] : entries)
        out.emplace(key, value);
    return out;
}

inline Value account(const char* name, const char* type) {
    return Value(record({{"Name", name}, {"Type", type}}));
}

} // namespace tavvel::test
