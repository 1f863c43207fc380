// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// The program around the test classes of a floor: <program> CLASS [ARGUMENTS OF QTEST], where CLASS
// is `filename` for the class FileNameTest.

#include "testclass.h"

#include <QTest>

// The application that the classes need: one without a display, with a display or with widgets.
#if defined(QUORVALE_TESTS_OF_WIDGETS)
#include <QApplication>
using Application = QApplication;
#elif defined(QUORVALE_TESTS_OF_WINDOWS)
#include <QGuiApplication>
using Application = QGuiApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

#include <cstdio>
#include <map>

namespace quorvale::test {

namespace {

struct Entry
{
    void (*prepare)();
    TestClass::Make make;
};

std::map<QByteArray, Entry> &entries()
{
    static std::map<QByteArray, Entry> entries;
    return entries;
}

} // namespace

TestClass::TestClass(const char *className, void (*prepare)(), Make make)
{
    QByteArray name = QByteArray(className).toLower();
    name.chop(name.endsWith("test") ? 4 : 0);
    entries()[name] = {prepare, make};
}

} // namespace quorvale::test

int main(int argc, char *argv[])
{
    const auto &entries = quorvale::test::entries();
    const auto found = argc > 1 ? entries.find(argv[1]) : entries.end();
    if (found == entries.end()) {
        std::fprintf(stderr, "Usage: %s CLASS [ARGUMENTS], with one of these classes:\n", argv[0]);
        for (const auto &[name, entry] : entries)
            std::fprintf(stderr, "  %s\n", name.constData());
        return EXIT_FAILURE;
    }
    found->second.prepare();
    // The test itself does not see the name of its class.
    for (int i = 1; i + 1 < argc; ++i)
        argv[i] = argv[i + 1];
    argv[--argc] = nullptr;
    Application application(argc, argv);
    application.setAttribute(Qt::AA_Use96Dpi);
    const std::unique_ptr<QObject> test = found->second.make();
    return QTest::qExec(test.get(), argc, argv);
}
