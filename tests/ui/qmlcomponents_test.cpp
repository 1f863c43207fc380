// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "controller/shownjob.h"
#include "support/recordedfilemanager.h"
#include "support/standintools.h"
#include "support/testclass.h"

#include <QDir>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTest>

Q_IMPORT_QML_PLUGIN(QuorvalePlugin)
Q_IMPORT_QML_PLUGIN(Quorvale_StylePlugin)

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

class FolderPanel : public OpenPanel
{
public:
    explicit FolderPanel(const QString &folder) : m_folder(folder) {}

    std::optional<QList<QUrl>> run(const OpenPanelRequest &) override
    {
        return QList{QUrl::fromLocalFile(m_folder)};
    }

private:
    const QString m_folder;
};

} // namespace

// That every component of the window can be built and goes through everything that the controller
// can show without a warning.
class QmlComponentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Without the graphics driver, which may have remarks of its own.
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        m_engine.addImportPath(u":/qt/qml"_s);
    }

    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void showsEverythingWithoutAWarning_data()
    {
        QTest::addColumn<QString>("name");
        QStringList names = QDir(folder).entryList({u"*.qml"_s});
        QVERIFY(names.contains(u"MainWindow.qml"_s));
        // These know each other or what they are in, and are shown by JobList.
        QCOMPARE(names.removeAll(u"JobControls.qml"_s), 1);
        QCOMPARE(names.removeAll(u"JobListKeys.qml"_s), 1);
        QCOMPARE(names.removeAll(u"JobListView.qml"_s), 1);
        QCOMPARE(names.removeAll(u"RowReorder.qml"_s), 1);
        QCOMPARE(names.removeAll(u"RunningRow.qml"_s), 1);
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << name;
    }
    void showsEverythingWithoutAWarning()
    {
        QFETCH(const QString, name);
        StandInTools tools;
        tools.setScript(u"ffmpeg"_s, 1,
                        Script().err("Unknown encoder 'h264_videotoolbox'").exit(1));
        tools.setScript(u"ffmpeg"_s, 2, Script().out("out_time_us=5000000\n").exit(0));
        tools.setScript(u"ffmpeg"_s, 3, Script().err("It failed because it failed.\n").exit(1));
        const auto model = ConverterViewModel::create(std::make_unique<FolderPanel>(tools.folder()),
                                                      std::make_unique<RecordedFileManager>());
        QQmlEngine::setObjectOwnership(model.get(), QQmlEngine::CppOwnership);

        QQuickWindow stage;
        stage.resize(960, 640);
        QQmlComponent ground(&m_engine);
        ground.setData("import QtQuick\n"
                       "import Quorvale.Style\n"
                       "Item { Scheme.colors: Theme.current; width: 960; height: 640 }\n",
                       QUrl());
        const std::unique_ptr<QObject> groundObject(ground.create());
        auto *groundItem = qobject_cast<QQuickItem *>(groundObject.get());
        QVERIFY2(groundItem, qPrintable(ground.errorString()));
        groundItem->setParentItem(stage.contentItem());
        QQmlComponent component(&m_engine, QUrl(u"qrc"_s + folder + name));
        QVERIFY2(component.isReady(), qPrintable(component.errorString()));
        const std::unique_ptr<QObject> object = create(component, *model, *groundItem);
        QVERIFY2(object && !component.isError(), qPrintable(component.errorString()));
        auto *ownWindow = qobject_cast<QQuickWindow *>(object.get());
        QQuickWindow &window = ownWindow ? *ownWindow : stage;
        window.show();
        const auto isDrawn = [&] {
            return !window.grabWindow().isNull();
        };
        QVERIFY(isDrawn());

        model->add({QUrl::fromLocalFile(u"/nowhere/one.mp4"_s),
                    QUrl::fromLocalFile(u"/nowhere/two.mp4"_s)});
        model->start();
        QVERIFY(model->alertMessage());
        QVERIFY(isDrawn());
        model->clearAlert();
        model->setDropTargeted(true);
        model->chooseDestination();
        QVERIFY(isDrawn());
        model->setDropTargeted(false);
        model->start();
        QVERIFY(model->isConverting());
        while (model->isConverting()) {
            QVERIFY(isDrawn());
            QTest::qWait(10);
        }
        QVERIFY(model->jobs().at(0).state.is(JobState::Case::completed));
        QVERIFY(model->jobs().at(1).state.is(JobState::Case::failed));
        QVERIFY(isDrawn());
        model->chooseCodec(4);
        model->clearCompleted();
        QVERIFY(isDrawn());
    }

private:
    const QString folder = u":/qt/qml/Quorvale/"_s;

    static ConversionJob failedJob()
    {
        ConversionJob job(QUrl::fromLocalFile(u"/videos/a.mp4"_s));
        job.state = JobState::failed(u"It failed."_s);
        return job;
    }

    // Gives the component those of the values that it has properties for.
    static std::unique_ptr<QObject> create(QQmlComponent &component, ConverterViewModel &model,
                                           QQuickItem &ground)
    {
        QVariantMap taken{
            {u"model"_s, QVariant::fromValue(&model)},
            {u"failures"_s, QVariant::fromValue(model.failures())},
            {u"parent"_s, QVariant::fromValue(&ground)},
            {u"job"_s, QVariant::fromValue(ShownJob(failedJob()))},
            {u"progress"_s, 0.5},
            {u"codec"_s, 0},
            {u"label"_s, u"H.264"_s},
            {u"selected"_s, true},
        };
        std::unique_ptr<QObject> object(component.beginCreate(component.engine()->rootContext()));
        if (!object)
            return nullptr;
        taken.removeIf([&](QVariantMap::iterator value) {
            return object->metaObject()->indexOfProperty(qPrintable(value.key())) < 0;
        });
        component.setInitialProperties(object.get(), taken);
        component.completeCreate();
        if (auto *item = qobject_cast<QQuickItem *>(object.get()))
            item->setSize(ground.size());
        return object;
    }

    QQmlEngine m_engine;
};

QUORVALE_TEST(QmlComponentsTest)
#include "qmlcomponents_test.moc"
