// The fuzz targets compiled into this test program, so that every build replays their corpora
// without libFuzzer: a test folder's program is built from its own sources only, and the
// targets belong to fuzz/, which only a clang build compiles on its own.
#include "../../fuzz/FuzzSupport.cpp"
#include "../../fuzz/SampleFormats.cpp"
#include "../../fuzz/targets/Classification.cpp"
#include "../../fuzz/targets/ContinuationFile.cpp"
#include "../../fuzz/targets/FormatFile.cpp"
#include "../../fuzz/targets/OfxReader.cpp"
#include "../../fuzz/targets/PreferenceFile.cpp"
#include "../../fuzz/targets/PropertyList.cpp"
#include "../../fuzz/targets/QifReader.cpp"
#include "../../fuzz/targets/Scanners.cpp"
#include "../../fuzz/targets/TextEngine.cpp"
