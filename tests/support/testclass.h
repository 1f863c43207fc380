// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

namespace quorvale::test {

/// A test class of an executable that holds several, of which each run takes one; see testmain.cpp.
class TestClass
{
public:
    using Make = std::unique_ptr<QObject> (*)();

    /// Makes the class known under its name. `prepare` runs before there is an application.
    TestClass(const char *className, void (*prepare)(), Make make);

    /// A test class that prepares what it has to in `initMain`, where it has one.
    template <typename Class>
    static TestClass of()
    {
        return {Class::staticMetaObject.className(), &prepare<Class>,
                []() -> std::unique_ptr<QObject> {
                    return std::make_unique<Class>();
                }};
    }

private:
    template <typename Class>
    static void prepare()
    {
        if constexpr (requires { Class::initMain(); })
            Class::initMain();
    }
};

} // namespace quorvale::test

/// Makes the class `FileNameTest` what the argument `filename` runs.
#define QUORVALE_TEST(Class)                                                                       \
    static const auto registered##Class = quorvale::test::TestClass::of<Class>();
