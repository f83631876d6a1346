// Which pictures "Show picture" may hand to the desktop: the guard on its own, then the whole
// command on the real window with names taken from a logbook.

#include "CAppHarness.h"

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

    // The name as the logbook stores it, relative to the logbook's folder, and the file that is
    // opened, relative to book/, or empty for a refusal.
    void check()
    {
        const fs::path book = fs::path(m_root.path().toStdString()) / "book";
        using Row = std::tuple<const char*, QString, QString>;
        const Row rows[] = {{"picture beside the logbook", "photo.jpg", "photo.jpg"},
                            {"extension in capitals", "Upper.JPEG", "Upper.JPEG"},
                            {"picture in a subfolder", "sub/deep.png", "sub/deep.png"},
                            {"climbs out and back in", "sub/../photo.jpg", "photo.jpg"},
                            {"link to a picture inside", "alias.jpg", "photo.jpg"},
                            {"missing file", "missing.jpg", {}},
                            {"climbs out of the folder", "../outside/secret.jpg", {}},
                            {"absolute name outside", m_root.path() + "/outside/secret.jpg", {}},
                            {"link leading outside", "escape.jpg", {}},
                            {"linked folder leading outside", "elsewhere/secret.jpg", {}},
                            {"script named like a picture", "fake.jpg", {}},
                            {"picture of another kind than its name", "png-as.jpg", {}},
                            {"link to a script", "script-link.jpg", {}},
                            {"script", "script.sh", {}},
                            {"desktop launcher", "launcher.desktop", {}},
                            {"empty file", "empty.png", {}},
                            {"folder named like a picture", "folder.jpg", {}},
                            {"the folder itself", ".", {}}};
        for (const auto& [name, stored, opened] : rows) {
            const fs::path result = CPictureGuard::Check(book, book / stored.toStdString());
            const fs::path want = opened.isEmpty() ? fs::path() : fs::canonical(book / opened.toStdString());
            QVERIFY2(result == want, name);
        }
        QVERIFY(CPictureGuard::Check(fs::path(), book / "photo.jpg").empty()); // no logbook folder
    }

    // The command on the window with the jump's picture name as the logbook stores it; on the
    // Home page nothing is selected and nothing shown.
    void showPicture()
    {
        using Row = std::tuple<QString, QString>; // stored, opened
        const Row rows[] = {{"sub\\deep.png", "sub/deep.png"},
                            {m_root.path() + "/outside/secret.jpg", {}},
                            {"..\\outside\\secret.jpg", {}}};
        for (const auto& [name, opened] : rows) {
            const CRow trace{name};
            CAppHarness harness;
            const QString path = m_root.path() + "/book/pictures.tvz";
            const CTestLogbook logbook =
                CTestLogbook().Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, name);
            QVERIFY(WriteGzip(CorePaths::LocalPath(path), logbook.Xml().toStdString()));
            harness.SetLastFile(path);
            QVERIFY(harness.StartWithoutSplash());
            harness.Commands()->OnJumpShowPicture();
            harness.View()->OnViewJumpList();
            harness.SelectRow(0);
            harness.Commands()->OnJumpShowPicture();
            const QString file = QFileInfo(m_root.path() + "/book/" + opened).canonicalFilePath();
            QCOMPARE(harness.viewer.opened, opened.isEmpty() ? QStringList() : QStringList{file});
            QVERIFY(harness.messages.boxes.isEmpty());
        }
    }

private:
    QTemporaryDir m_root;
};

QTEST_MAIN(TestPictureGuard)
#include "PictureGuardTest.moc"
