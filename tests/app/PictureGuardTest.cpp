// Which pictures "Show picture" may hand to the desktop: the guard on its own, then the whole
// command on the real window with names taken from a logbook.

#include "CAppHarness.h"

#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CPictureGuard.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

const QByteArray kJpeg = QByteArray::fromHex("ffd8ffe000104a464946") + QByteArray(32, 'x');
const QByteArray kPng = QByteArray::fromHex("89504e470d0a1a0a") + QByteArray(32, 'x');

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// book/ holds the logbook and its pictures; outside/ is a sibling the logbook must not reach.
void MakeFolders(const QString& root)
{
    QVERIFY(WriteFile(root + "/book/photo.jpg", kJpeg));
    QVERIFY(WriteFile(root + "/book/Upper.JPEG", kJpeg));
    QVERIFY(WriteFile(root + "/book/sub/deep.png", kPng));
    QVERIFY(WriteFile(root + "/book/fake.jpg", "#!/bin/sh\necho owned\n"));
    QVERIFY(WriteFile(root + "/book/png-as.jpg", kPng));
    QVERIFY(WriteFile(root + "/book/script.sh", "#!/bin/sh\necho owned\n"));
    QVERIFY(WriteFile(root + "/book/launcher.desktop", "[Desktop Entry]\nExec=xterm\n"));
    QVERIFY(WriteFile(root + "/book/empty.png", QByteArray()));
    QVERIFY(QDir().mkpath(root + "/book/folder.jpg"));
    QVERIFY(WriteFile(root + "/outside/secret.jpg", kJpeg));
    QVERIFY(QFile::link(root + "/outside/secret.jpg", root + "/book/escape.jpg"));
    QVERIFY(QFile::link(root + "/book/script.sh", root + "/book/script-link.jpg"));
    QVERIFY(QFile::link(root + "/book/photo.jpg", root + "/book/alias.jpg"));
    QVERIFY(QFile::link(root + "/outside", root + "/book/elsewhere"));
}

} // namespace

class TestPictureGuard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_root.isValid());
        MakeFolders(m_root.path());
    }

    // name: as the logbook stores it, relative to the logbook's folder; expected: the file
    // that is opened, relative to book/, or empty for a refusal.
    void check_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, QString stored, QString opened) {
            QTest::newRow(name) << stored << opened;
        };
        row("picture beside the logbook", "photo.jpg", "photo.jpg");
        row("extension in capitals", "Upper.JPEG", "Upper.JPEG");
        row("picture in a subfolder", "sub/deep.png", "sub/deep.png");
        row("climbs out and back in", "sub/../photo.jpg", "photo.jpg");
        row("link to a picture inside", "alias.jpg", "photo.jpg");
        row("missing file", "missing.jpg", {});
        row("climbs out of the folder", "../outside/secret.jpg", {});
        row("link leading outside", "escape.jpg", {});
        row("linked folder leading outside", "elsewhere/secret.jpg", {});
        row("script named like a picture", "fake.jpg", {});
        row("picture of another kind than its name", "png-as.jpg", {});
        row("link to a script", "script-link.jpg", {});
        row("script", "script.sh", {});
        row("desktop launcher", "launcher.desktop", {});
        row("empty file", "empty.png", {});
        row("folder named like a picture", "folder.jpg", {});
        row("the folder itself", ".", {});
    }

    void check()
    {
        QFETCH(QString, name);
        QFETCH(QString, expected);
        const fs::path book = fs::path(m_root.path().toStdString()) / "book";
        const fs::path result = CPictureGuard::Check(book, book / name.toStdString());
        const fs::path want = expected.isEmpty() ? fs::path() : fs::canonical(book / expected.toStdString());
        QCOMPARE(QString::fromStdString(result.string()), QString::fromStdString(want.string()));
    }

    void absoluteNameOutsideIsRefused()
    {
        const fs::path book = fs::path(m_root.path().toStdString()) / "book";
        const fs::path outside = fs::path(m_root.path().toStdString()) / "outside" / "secret.jpg";
        QVERIFY(CPictureGuard::Check(book, outside).empty());
        QVERIFY(CPictureGuard::Check(fs::path(), book / "photo.jpg").empty());
    }

    // The command on the window: the jump's picture name as the logbook stores it.
    void showPicture_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("opened");
        QTest::newRow("backslash separators") << "sub\\deep.png" << QString("sub/deep.png");
        QTest::newRow("absolute name stays inside") << m_root.path() + "/outside/secret.jpg" << QString();
        QTest::newRow("climbs out") << "..\\outside\\secret.jpg" << QString();
    }

    void showPicture()
    {
        QFETCH(QString, name);
        QFETCH(QString, opened);
        CAppHarness harness;
        const QString path = m_root.path() + "/book/pictures.tvz";
        QVERIFY(CTestLogbook().Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, name).WriteGzip(path));
        harness.SetLastFile(path);
        QVERIFY(harness.StartWithoutSplash());
        harness.Commands()->OnJumpShowPicture(); // Home page: nothing selected, nothing shown
        harness.View()->OnViewJumpList();
        harness.SelectRow(0);
        harness.Commands()->OnJumpShowPicture();
        const QString file = QFileInfo(m_root.path() + "/book/" + opened).canonicalFilePath();
        QCOMPARE(harness.viewer.opened, opened.isEmpty() ? QStringList() : QStringList{file});
        QVERIFY(harness.messages.boxes.isEmpty());
    }

private:
    QTemporaryDir m_root;
};

QTEST_MAIN(TestPictureGuard)
#include "PictureGuardTest.moc"
