// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "package.h"

#include "model/filename.h"

#include <QSet>
#include <QString>

using namespace Qt::StringLiterals;

namespace quorvale {

bool isPackage(QByteArrayView name)
{
    // The bundle types that macOS and its common applications declare as packages. Kept to the very
    // end, when a thread that was left behind may still look into them.
    static const auto &extensions = *new QSet<QString>{
        // programs and their parts
        u"app"_s, u"appex"_s, u"bundle"_s, u"component"_s, u"framework"_s, u"kext"_s,
        u"mdimporter"_s, u"plugin"_s, u"prefpane"_s, u"qlgenerator"_s, u"saver"_s, u"service"_s,
        u"vst"_s, u"vst3"_s, u"xpc"_s,
        // installers and developers' documents
        u"dsym"_s, u"mpkg"_s, u"pkg"_s, u"playground"_s, u"scptd"_s, u"workflow"_s, u"xcarchive"_s,
        u"xcodeproj"_s, u"xcworkspace"_s,
        // documents
        u"band"_s, u"cmproj"_s, u"key"_s, u"logicx"_s, u"numbers"_s, u"pages"_s, u"rtfd"_s,
        u"screenflow"_s, u"sparsebundle"_s,
        // media libraries and what backs them up
        u"aplibrary"_s, u"cocatalog"_s, u"eyetv"_s, u"fcarch"_s, u"fcpbundle"_s, u"imovielibrary"_s,
        u"lrlibrary"_s, u"migratedphotolibrary"_s, u"musiclibrary"_s, u"photolibrary"_s,
        u"photoslibrary"_s, u"theater"_s, u"tvlibrary"_s};
    return extensions.contains(lowerCaseExtension(name));
}

} // namespace quorvale
