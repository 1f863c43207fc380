# SPDX-FileCopyrightText: 2026 The Quorvale authors
# SPDX-License-Identifier: MIT

# The one place where compiler flags live: every target of the project links this one.
add_library(quorvale_options INTERFACE)
add_library(Quorvale::Options ALIAS quorvale_options)

target_compile_features(quorvale_options INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)

target_compile_options(quorvale_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wold-style-cast
    # A fused multiply-add rounds once where the encoder arguments promise two roundings.
    -ffp-contract=off)

target_compile_definitions(quorvale_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# What is installed is harder to attack through its faults. Some compilers define the macro already.
if(NOT APPLE)
    target_compile_options(quorvale_options INTERFACE $<$<CONFIG:Release>:
        -fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
    target_link_options(quorvale_options INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()

option(QUORVALE_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(QUORVALE_SANITIZE)
    # "vptr" opens a pipe to see whether an object can be read; where no descriptor is left, as in
    # some tests, it takes a sound one for a broken one.
    set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_compile_options(quorvale_options INTERFACE ${sanitizers})
    target_link_options(quorvale_options INTERFACE ${sanitizers})
endif()

option(QUORVALE_SANITIZE_THREADS "Build with ThreadSanitizer" OFF)
if(QUORVALE_SANITIZE_THREADS)
    if(QUORVALE_SANITIZE)
        message(FATAL_ERROR "ThreadSanitizer cannot be combined with AddressSanitizer")
    endif()
    set(sanitizers -fsanitize=thread -fno-omit-frame-pointer)
    target_compile_options(quorvale_options INTERFACE ${sanitizers})
    target_link_options(quorvale_options INTERFACE ${sanitizers})
endif()
