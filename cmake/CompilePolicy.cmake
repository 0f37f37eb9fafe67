# One place for the compile policy: every target links tavvel_policy.
option(TAVVEL_WERROR "Treat compiler warnings as errors" OFF)
option(TAVVEL_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_library(tavvel_policy INTERFACE)
target_compile_features(tavvel_policy INTERFACE cxx_std_20)
target_compile_options(tavvel_policy INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                               -Wold-style-cast -Wcast-align -Woverloaded-virtual)
# GCC 12 reports impossible overlaps inside std::string copies at -O2 (its bug 105651); the
# warning says nothing about our code there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(tavvel_policy INTERFACE -Wno-restrict)
endif()
if(TAVVEL_WERROR)
    target_compile_options(tavvel_policy INTERFACE -Werror)
endif()
if(TAVVEL_SANITIZE)
    target_compile_options(tavvel_policy INTERFACE -fsanitize=address,undefined
                                                   -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tavvel_policy INTERFACE -fsanitize=address,undefined)
endif()
