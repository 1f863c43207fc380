// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/dialogpanel.h"
#include "support/filetree.h"
#include "support/testclass.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <functional>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Answer = std::optional<QList<QUrl>>;

// Qt's own dialog, which the panel shows where the desktop has none, operated as a user would.
class DialogPanelTest : public QObject
{
    Q_OBJECT

public:
    // Before Qt reads its settings: the user's home and settings are the test's own.
    static void initMain()
    {
        static const FileTree home;
        qputenv("HOME", QFile::encodeName(home.path(QString())));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path(u"config"_s)));
    }

private Q_SLOTS:
    void init() { m_panel = std::make_unique<DialogPanel>(); }

    void showsTheTitleAndThePrompt()
    {
        for (const OpenPanelRequest &request : {videos, folders, output}) {
            QString title;
            QString prompt;
            run(request, [&](QFileDialog &dialog) {
                title = dialog.windowTitle();
                prompt = acceptButton(dialog)->text();
                dialog.reject();
            });
            QCOMPARE(title, request.title);
            QCOMPARE(prompt, request.prompt);
        }
    }

    void belongsToTheWindowAndIsModalToTheProgram()
    {
        QWindow window;
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (const OpenPanelRequest &request : {videos, folders, output}) {
            const QWindow *parent = nullptr;
            Qt::WindowModality modality = Qt::NonModal;
            run(request, [&](QFileDialog &dialog) {
                parent = dialog.windowHandle()->transientParent();
                modality = dialog.windowHandle()->modality();
                dialog.reject();
            });
            QCOMPARE(parent, &window);
            QCOMPARE(modality, Qt::ApplicationModal);
        }
    }

    void escapeCancels()
    {
        for (const OpenPanelRequest &request : {videos, folders, output}) {
            const Answer answer =
                run(request, [](QFileDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
            QVERIFY(!answer);
        }
    }

    void showsVideosAndFoldersOnly()
    {
        const FileTree tree;
        tree.addFiles({u"a.mp4"_s, u"B.MoV"_s, u"c.txt"_s, u"sub/d.mkv"_s});
        QStringList names;
        QStringList filters;
        run(videos, [&](QFileDialog &dialog) {
            open(dialog, tree.path(QString()), 3);
            names = shown(dialog);
            filters = dialog.nameFilters();
            dialog.reject();
        });
        names.sort();
        QCOMPARE(names, (QStringList{u"B.MoV"_s, u"a.mp4"_s, u"sub"_s}));
        QCOMPARE(filters.size(), 1);
        QVERIFY(filters[0].startsWith(u"Videos ("_s));
    }

    void takesSeveralFiles()
    {
        const FileTree tree;
        tree.addFiles({u"a.mp4"_s, u"50% #1?.mkv"_s, u"c.mov"_s});
        const Answer answer = run(videos, [&](QFileDialog &dialog) {
            open(dialog, tree.path(QString()), 3);
            select(dialog, {u"a.mp4"_s, u"50% #1?.mkv"_s});
            acceptButton(dialog)->click();
        });
        QVERIFY(answer);
        QCOMPARE(QSet<QUrl>(answer->begin(), answer->end()),
                 (QSet<QUrl>{tree.url(u"a.mp4"_s), tree.url(u"50% #1?.mkv"_s)}));
    }

    void takesSeveralFolders()
    {
        const FileTree tree;
        for (const auto &name : {u"one"_s, u"50% #1? two"_s, u"日本"_s, u"four"_s})
            tree.addFolder(name);
        tree.addFile(u"file.mp4"_s);
        QStringList names;
        const Answer answer = run(folders, [&](QFileDialog &dialog) {
            open(dialog, tree.path(QString()), 4);
            names = shown(dialog);
            select(dialog, {u"one"_s, u"50% #1? two"_s, u"日本"_s});
            acceptButton(dialog)->click();
        });
        QVERIFY(!names.contains(u"file.mp4"_s));
        QVERIFY(answer);
        QCOMPARE(QSet<QUrl>(answer->begin(), answer->end()),
                 (QSet<QUrl>{tree.url(u"one"_s), tree.url(u"50% #1? two"_s), tree.url(u"日本"_s)}));
    }

    void takesOneOutputFolder()
    {
        const FileTree tree;
        tree.addFolder(u"one"_s);
        tree.addFolder(u"two"_s);
        const Answer answer = run(output, [&](QFileDialog &dialog) {
            open(dialog, tree.path(QString()), 2);
            select(dialog, {u"one"_s, u"two"_s});
            acceptButton(dialog)->click();
        });
        QVERIFY(answer);
        QCOMPARE(answer->size(), 1);
    }

    void takesTheFolderThatIsShownWhenNoneIsSelected()
    {
        const FileTree tree;
        const Answer answer = run(output, [&](QFileDialog &dialog) {
            dialog.setDirectory(tree.path(QString()));
            dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->clear();
            acceptButton(dialog)->click();
        });
        QVERIFY(answer);
        QCOMPARE(answer->size(), 1);
        QCOMPARE(answer->first().adjusted(QUrl::StripTrailingSlash), tree.root());
    }

    void takesThePathThatIsTyped()
    {
        const FileTree tree;
        tree.addFile(u"home/u/a.mp4"_s); // a user with so short a name
        tree.addFolder(u"home/u/one"_s);
        for (const OpenPanelRequest &request : {videos, folders, output}) {
            const bool isFile = request.title == videos.title;
            const QString name = isFile ? u"home/u/a.mp4"_s : u"home/u/one"_s;
            const Answer answer = run(request, [&](QFileDialog &dialog) {
                open(dialog, tree.path(u"home/u"_s), isFile ? 2 : 1);
                auto *line = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
                if (QTest::qWaitFor([&] { return line->hasFocus(); }))
                    QTest::keyClicks(line, tree.path(name));
                QTest::keyClick(line, Qt::Key_Return);
                if (dialog.isVisible())
                    dialog.reject();
            });
            QCOMPARE(answer, QList{tree.url(name)});
        }
    }

    void makesANewOutputFolder()
    {
        const FileTree tree;
        tree.addFolder(u"older"_s);
        QString name;
        const Answer answer = run(output, [&](QFileDialog &dialog) {
            open(dialog, tree.path(QString()), 1);
            newFolderButton(dialog)->click();
            const auto newNames = [&] {
                QStringList names = shown(dialog);
                names.removeOne(u"older"_s);
                return names;
            };
            if (!QTest::qWaitFor([&] { return newNames().size() == 1; }))
                return dialog.reject();
            name = newNames().first();
            select(dialog, {name});
            acceptButton(dialog)->click();
        });
        QVERIFY(answer);
        QCOMPARE(*answer, QList{tree.url(name)});
        QVERIFY(QDir(tree.path(name)).exists());
    }

    void changesNothingWhereVideosAreChosen()
    {
        for (const OpenPanelRequest &request : {videos, folders}) {
            bool canMakeFolders = true;
            bool isReadOnly = false;
            run(request, [&](QFileDialog &dialog) {
                canMakeFolders = newFolderButton(dialog)->isEnabled();
                isReadOnly = dialog.testOption(QFileDialog::ReadOnly);
                dialog.reject();
            });
            QVERIFY(!canMakeFolders);
            QVERIFY(isReadOnly);
        }
    }

    void leavesTheDesktopItsDialogExceptForSeveralFolders()
    {
        for (const OpenPanelRequest &request : {videos, folders, output}) {
            bool isQtsOwn = false;
            run(request, [&](QFileDialog &dialog) {
                isQtsOwn = dialog.testOption(QFileDialog::DontUseNativeDialog);
                dialog.reject();
            });
            QCOMPARE(isQtsOwn, request.title == folders.title);
        }
    }

    void eachPanelOpensWhereItWasLastConfirmed()
    {
        const FileTree tree;
        tree.addFiles({u"in/a.mp4"_s});
        tree.addFolder(u"out/x"_s);
        run(videos, [&](QFileDialog &dialog) {
            open(dialog, tree.path(u"in"_s), 1);
            select(dialog, {u"a.mp4"_s});
            acceptButton(dialog)->click();
        });
        run(output, [&](QFileDialog &dialog) {
            open(dialog, tree.path(u"out"_s), 1);
            select(dialog, {u"x"_s});
            acceptButton(dialog)->click();
        });
        run(videos, [&](QFileDialog &dialog) {
            dialog.setDirectory(tree.path(QString())); // and then cancelled
            dialog.reject();
        });
        QCOMPARE(startOf(videos), tree.path(u"in"_s));
        QCOMPARE(startOf(output), tree.path(u"out"_s));
        QCOMPARE(startOf(folders), QDir::homePath());
        m_panel = std::make_unique<DialogPanel>(); // as in the program's next run
        QCOMPARE(startOf(videos), QDir::homePath());
    }

    void theEndOfTheProgramClosesTheDialog()
    {
        Answer answer(QList<QUrl>{});
        QTimer::singleShot(0, this, [&] {
            answer = run(folders, [](QFileDialog &) { QCoreApplication::quit(); });
        });
        QCoreApplication::exec();
        QVERIFY(!answer);
        QVERIFY(!dialog());
    }

    void theEndOfTheWindowMeanwhileDoesNoHarm()
    {
        for (const OpenPanelRequest &request : {videos, folders, output}) {
            auto window = std::make_unique<QWindow>();
            window->show();
            window->requestActivate();
            QVERIFY(QTest::qWaitForWindowActive(window.get()));
            const Answer answer = run(request, [&](QFileDialog &dialog) {
                window->close();
                window.reset();
                QTimer::singleShot(0, &dialog, &QDialog::reject);
            });
            QVERIFY(!answer);
        }
    }

private:
    static QFileDialog *dialog()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *dialog = qobject_cast<QFileDialog *>(widget);
            if (dialog && dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    // Runs the panel and, once it is open, `operate` on its dialog.
    Answer run(const OpenPanelRequest &request, const std::function<void(QFileDialog &)> &operate)
    {
        QTimer opening;
        connect(&opening, &QTimer::timeout, this, [&] {
            if (QFileDialog *open = dialog()) {
                opening.stop();
                operate(*open);
            }
        });
        opening.start(10);
        QTimer patience;
        patience.setSingleShot(true);
        connect(&patience, &QTimer::timeout, this, [] { qFatal("The dialog stays open"); });
        patience.start(60'000);
        return m_panel->run(request);
    }

    QString startOf(const OpenPanelRequest &request)
    {
        QString start;
        run(request, [&](QFileDialog &dialog) {
            start = dialog.directory().path();
            dialog.reject();
        });
        return start;
    }

    // The one of its two views that the dialog shows.
    static QAbstractItemView &view(const QFileDialog &dialog)
    {
        auto *list = dialog.findChild<QAbstractItemView *>(u"listView"_s);
        auto *tree = dialog.findChild<QAbstractItemView *>(u"treeView"_s);
        return tree->isVisible() ? *tree : *list;
    }
    static QToolButton *newFolderButton(const QFileDialog &dialog)
    {
        return dialog.findChild<QToolButton *>(u"newFolderButton"_s);
    }
    static QPushButton *acceptButton(const QFileDialog &dialog)
    {
        return dialog.findChild<QDialogButtonBox *>(u"buttonBox"_s)->button(QDialogButtonBox::Open);
    }

    // Goes to a folder and waits until its entries are listed.
    static void open(QFileDialog &dialog, const QString &folder, int entries)
    {
        dialog.setDirectory(folder);
        const auto isListed = [&] {
            return shown(dialog).size() == entries;
        };
        if (!QTest::qWaitFor(isListed, 10'000))
            qWarning("%lld entries instead of %d", shown(dialog).size(), entries);
    }

    static QStringList shown(const QFileDialog &dialog)
    {
        QStringList names;
        const QAbstractItemModel &entries = *view(dialog).model();
        const QModelIndex root = view(dialog).rootIndex();
        for (int row = 0; row < entries.rowCount(root); ++row)
            names << entries.index(row, 0, root).data().toString();
        return names;
    }

    // As a user does: a click on the first and control-clicks on the others.
    static void select(const QFileDialog &dialog, const QStringList &names)
    {
        QAbstractItemView &entries = view(dialog);
        for (const QString &name : names) {
            const auto row = static_cast<int>(shown(dialog).indexOf(name));
            const QModelIndex entry = entries.model()->index(row, 0, entries.rootIndex());
            entries.scrollTo(entry);
            QTest::mouseClick(entries.viewport(), Qt::LeftButton,
                              name == names.first() ? Qt::NoModifier : Qt::ControlModifier,
                              entries.visualRect(entry).center());
        }
    }

    const OpenPanelRequest videos{.title = u"Choose videos to convert"_s,
                                  .prompt = u"Add Videos"_s,
                                  .choice = OpenPanelRequest::Choice::videos,
                                  .allowsMultiple = true};
    const OpenPanelRequest folders{.title = u"Choose a folder of videos"_s,
                                   .prompt = u"Add Folder"_s,
                                   .choice = OpenPanelRequest::Choice::folders,
                                   .allowsMultiple = true};
    const OpenPanelRequest output{.title = u"Choose output folder"_s,
                                  .prompt = u"Choose"_s,
                                  .choice = OpenPanelRequest::Choice::folders,
                                  .canCreateFolders = true};
    std::unique_ptr<DialogPanel> m_panel;
};

QUORVALE_TEST(DialogPanelTest)
#include "dialogpanel_test.moc"
