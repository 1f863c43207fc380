// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "controller/converterviewmodel.h"
#include "support/patience.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/testclass.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQmlExtensionPlugin>
#include <QRegularExpression>
#include <QTest>

Q_IMPORT_QML_PLUGIN(QuorvalePlugin)

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

// A panel during which files arrive.
struct BusyPanel : OpenPanel
{
    std::optional<QList<QUrl>> run(const OpenPanelRequest &) override
    {
        model->handleDrop({QUrl::fromLocalFile(u"/videos/0.mp4"_s)});
        QTest::qWait(50);
        ++runs;
        return std::nullopt;
    }

    ConverterViewModel *model = nullptr;
    int runs = 0;
};

} // namespace

// That the controller can be used from QML with the values that QML has.
class ControllerTypesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        auto panel = std::make_unique<RecordedPanel>();
        auto fileManager = std::make_unique<RecordedFileManager>();
        m_panel = panel.get();
        m_fileManager = fileManager.get();
        m_model = ConverterViewModel::create(std::move(panel), std::move(fileManager));
        QQmlEngine::setObjectOwnership(m_model.get(), QQmlEngine::CppOwnership);

        m_engine = std::make_unique<QQmlEngine>();
        m_engine->addImportPath(u":/qt/qml"_s);
        QQmlComponent component(m_engine.get());
        component.setData("import QtQml\n"
                          "import Quorvale\n"
                          "QtObject {\n"
                          "    required property ConverterViewModel model\n"
                          "    readonly property Instantiator rows: Instantiator {\n"
                          "        model: root.model.jobs\n"
                          "        delegate: QtObject {\n"
                          "            required property shownJob job\n"
                          "        }\n"
                          "    }\n"
                          "    id: root\n"
                          "}\n",
                          QUrl());
        m_root.reset(component.createWithInitialProperties(
            {{u"model"_s, QVariant::fromValue(m_model.get())}}));
        QVERIFY2(m_root, qPrintable(component.errorString()));
    }

    void cleanup()
    {
        m_root.reset();
        m_engine.reset();
        m_model.reset();
    }

    void takesTheIdThatARowShows()
    {
        addClips(3);
        run(u"model.moveJob(rows.objectAt(0).job.id, 2)"_s);
        QCOMPARE(order(), u"1 2 0"_s);
        run(u"model.moveJob(rows.objectAt(2).job.id, -1)"_s);
        QCOMPARE(order(), u"1 0 2"_s);
        run(u"model.requeue(rows.objectAt(2).job.id)"_s);
        run(u"model.remove(rows.objectAt(1).job.id)"_s);
        QCOMPARE(order(), u"1 2"_s);
        run(u"model.clearCompleted()"_s);
        QCOMPARE(order(), u"1 2"_s);
    }

    void takesAnArrayOfRows()
    {
        addClips(5);
        run(u"model.moveJobs([0, 3], 5)"_s);
        QCOMPARE(order(), u"1 2 4 0 3"_s);
        run(u"model.moveJobs([4], 0)"_s);
        QCOMPARE(order(), u"3 1 2 4 0"_s);
    }

    void showsWhatARowNeeds()
    {
        addClips(1);
        QCOMPARE(run(u"rows.objectAt(0).job.sourcePath"_s), u"/videos/0.mp4"_s);
        QCOMPARE(run(u"rows.objectAt(0).job.isCompleted"_s), false);
        QCOMPARE(run(u"rows.objectAt(0).job.hasFailed"_s), false);
    }

    void writesTheSettings()
    {
        run(u"model.goalIndex = 2; model.audioIndex = 1; model.useHardware = false;"
            "model.quality = 81.25"_s);
        QCOMPARE(m_model->settings().goal, EncodingGoal::constantQuality);
        QCOMPARE(m_model->settings().audio, AudioMode::copy);
        QCOMPARE(m_model->settings().useHardware, false);
        QCOMPARE(m_model->settings().quality, 81.25);
        QCOMPARE(run(u"model.goalLabels[model.goalIndex]"_s), u"Constant quality"_s);
        QCOMPARE(run(u"model.audioLabels[model.audioIndex]"_s), u"Copy source audio"_s);
        QCOMPARE(run(u"model.isProRes"_s), false);
    }

    void opensThePanelsAndShowsTheFolder()
    {
        const QUrl folder = QUrl::fromLocalFile(u"/out"_s);
        m_panel->answers = {std::nullopt, std::nullopt, QList{folder}};
        QCOMPARE(run(u"model.hasDestination"_s), false);
        run(u"model.revealDestination(); model.chooseFiles(); model.chooseFolder();"
            "model.chooseDestination(); model.revealDestination()"_s);
        QCOMPARE(m_panel->requests.size(), 3);
        QCOMPARE(run(u"model.hasDestination"_s), true);
        QCOMPARE(m_fileManager->revealed, QList{folder});
    }

    // Without the call later, Qt would end the program: the handler's object goes meanwhile.
    void aPanelOutlivesTheButtonThatIsGoneWhenFilesArrive()
    {
        auto panel = std::make_unique<BusyPanel>();
        BusyPanel &busy = *panel;
        m_root.reset();
        m_model =
            ConverterViewModel::create(std::move(panel), std::make_unique<RecordedFileManager>());
        QQmlEngine::setObjectOwnership(m_model.get(), QQmlEngine::CppOwnership);
        busy.model = m_model.get();
        QQmlComponent component(m_engine.get());
        component.setData("import QtQml\n"
                          "import Quorvale\n"
                          "Instantiator {\n"
                          "    id: root\n"
                          "    required property ConverterViewModel model\n"
                          "    active: root.model.jobCount === 0\n"
                          "    QtObject {\n"
                          "        signal clicked\n"
                          "        onClicked: Qt.callLater(root.model.chooseFiles)\n"
                          "    }\n"
                          "}\n",
                          QUrl());
        m_root.reset(component.createWithInitialProperties(
            {{u"model"_s, QVariant::fromValue(m_model.get())}}));
        QVERIFY2(m_root, qPrintable(component.errorString()));
        const QPointer<QObject> button(m_root->property("object").value<QObject *>());
        QVERIFY(button && QMetaObject::invokeMethod(button, "clicked"));
        QTRY_COMPARE_WITH_TIMEOUT(busy.runs, 1, patience);
        QVERIFY(!button);
        QCOMPARE(m_model->jobCount(), 1);
    }

private:
    QVariant run(const QString &code)
    {
        QQmlExpression expression(qmlContext(m_root.get()), m_root.get(), code);
        const QVariant value = expression.evaluate();
        if (expression.hasError())
            qWarning("%s", qPrintable(expression.error().toString()));
        return value;
    }

    void addClips(int count)
    {
        QList<QUrl> clips;
        for (int i = 0; i < count; ++i)
            clips << QUrl::fromLocalFile(u"/videos/%1.mp4"_s.arg(i));
        m_model->add(clips);
    }

    QString order() const
    {
        QStringList names;
        for (const ConversionJob &job : m_model->jobs())
            names << job.source().fileName().chopped(4);
        return names.join(u' ');
    }

    RecordedPanel *m_panel = nullptr;
    RecordedFileManager *m_fileManager = nullptr;
    std::shared_ptr<ConverterViewModel> m_model;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QObject> m_root;
};

QUORVALE_TEST(ControllerTypesTest)
#include "controllertypes_test.moc"
