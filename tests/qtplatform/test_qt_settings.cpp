#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/qt/QtSettingsStore.h"
#include "platform/virtual/Fakes.h"

namespace uke {
namespace {

TEST(QtSettingsStore, KeepsTheStoreTypingThroughTheFile) {
    QTemporaryDir dir;
    const QString path = dir.filePath("settings.ini");
    RecordingLog log;
    {
        QtSettingsStore s(path, log);
        s.setBool("soundNotificationEnabled", true);
        s.setInteger("savedA4Calibration", 442);
        s.setDouble("kRatingPromptFirstUseDate", 1700000000.5);
        s.setString("kRatingPromptCurrentVersion", "1.0");
        s.synchronize();
    }
    QtSettingsStore s(path, log);
    EXPECT_EQ(s.integerForKey("soundNotificationEnabled"), 1);
    EXPECT_EQ(s.integerForKey("savedA4Calibration"), 442);
    EXPECT_EQ(s.doubleForKey("kRatingPromptFirstUseDate"), 1700000000.5);
    EXPECT_EQ(s.stringForKey("kRatingPromptCurrentVersion"), "1.0");
    EXPECT_EQ(s.integerForKey("missing"), 0);
    s.wipeDomain();
    s.synchronize();
    EXPECT_TRUE(s.keys().empty());
    EXPECT_TRUE(log.lines.empty());
}

TEST(QtSettingsStore, DamagedFileIsKeptAsideAndTheStoreStartsEmpty) {
    QTemporaryDir dir;
    const QString path = dir.filePath("settings.ini");
    for (const QByteArray& junk : {QByteArray("\x00\x01\x02garbage\xff\xfe", 12), QByteArray("[General]\nno equals sign here\n")}) {
        {
            QFile f(path);
            ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
            f.write(junk);
        }
        RecordingLog log;
        QtSettingsStore s(path, log);
        EXPECT_EQ(s.integerForKey("NewLaunchOrvel"), 0) << "behaves as a first launch";
        ASSERT_EQ(log.lines.size(), 1u);
        EXPECT_NE(log.lines[0].find("damaged"), std::string::npos) << log.lines[0];
        s.setInteger("savedA4Calibration", 440);
        s.synchronize();
        // The damaged bytes are kept for the player, next to the fresh file.
        const QStringList aside = QDir(dir.path()).entryList({"settings.ini.damaged-*"});
        ASSERT_FALSE(aside.isEmpty());
        QFile kept(dir.filePath(aside.last()));
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), junk);
        QtSettingsStore again(path, log);
        EXPECT_EQ(again.integerForKey("savedA4Calibration"), 440);
        for (const QString& f : aside)
            QFile::remove(dir.filePath(f));
    }
}

} // namespace
} // namespace uke
