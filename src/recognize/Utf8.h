#pragma once
// Writing code points as UTF-8, shared by the readers that decode other encodings; the
// encoder itself lives with the preference store, which also needs it.

#include "prefs/Utf8Text.h"
