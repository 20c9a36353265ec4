// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <functional>
#include <optional>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/qt/QtSettingsStore.h"
#include "platform/virtual/Fakes.h"

namespace uke {
namespace {

// Text that looks like a number (or holds the file's own separators) is the same
// text after a relaunch, and a number still a number.
TEST(QtSettingsStore, ValuesComeBackAfterARelaunchAsTheyWent) {
    using namespace std::string_literals;
    const SettingValue values[] = {true,    440L,    1.1,     "1.10"s, "1.0"s, "007"s,  "1e3"s,
                                   "nan"s,  ""s,     "true"s, "a,b"s,  "x=y"s, "[s]"s, ";c"s};
    QTemporaryDir dir;
    RecordingLog log;
    {
        QtSettingsStore written(dir.filePath("settings.ini"), log);
        for (size_t i = 0; i < std::size(values); ++i)
            written.setValue("k" + std::to_string(i), values[i]);
        written.synchronize();
    }
    QtSettingsStore read(dir.filePath("settings.ini"), log);
    for (size_t i = 0; i < std::size(values); ++i)
        EXPECT_EQ(read.value("k" + std::to_string(i)), values[i]) << settingToText(values[i]);
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

QByteArray contents(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Runs the store as a user who cannot write the file. Root writes any file, so
// when the tests run as root the user is switched to nobody for the while (the
// saved user stays root, to switch back).
class AsUserWithoutRights {
public:
    AsUserWithoutRights() {
        if (::geteuid() == 0)
            switched_ = ::setresuid(65534, 65534, 0) == 0;
    }
    ~AsUserWithoutRights() {
        if (switched_) {
            EXPECT_EQ(::setresuid(0, 0, 0), 0);
        }
    }
    bool ok() const { return ::geteuid() != 0; }

private:
    bool switched_ = false;
};

// A file that cannot be written: the app keeps running on what it read, says so
// once, leaves the file as it was, and saves everything once it can again.
TEST(QtSettingsStore, FileThatCannotBeWrittenLosesNothing) {
    const struct {
        const char* what;
        std::function<void(const QString& path)> block, unblock;
        bool asUserWithoutRights = false;
    } cases[] = {
        {"read-only", [](const QString& path) { ::chmod(path.toLocal8Bit().constData(), 0444); },
         [](const QString& path) { ::chmod(path.toLocal8Bit().constData(), 0666); }, true},
        // A full disk: no file may grow past 8 bytes (the write fails with EFBIG).
        {"disk full",
         [](const QString&) {
             std::signal(SIGXFSZ, SIG_IGN);
             const rlimit tiny{8, RLIM_INFINITY};
             ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tiny), 0);
         },
         [](const QString&) {
             const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
             ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &none), 0);
         }},
    };
    for (const auto& c : cases) {
        QTemporaryDir dir;
        ::chmod(dir.path().toLocal8Bit().constData(), 0755);
        const QString path = dir.filePath("settings.ini");
        RecordingLog log;
        {
            QtSettingsStore first(path, log);
            first.setInteger("savedA4Calibration", 442);
            first.synchronize();
        }
        const QByteArray before = contents(path);
        c.block(path);
        {
            std::optional<AsUserWithoutRights> user;
            if (c.asUserWithoutRights && !user.emplace().ok()) {
                c.unblock(path);
                GTEST_SKIP() << "no user without rights to the file";
            }
            QtSettingsStore s(path, log);
            EXPECT_EQ(s.integerForKey("savedA4Calibration"), 442) << c.what;
            s.setInteger("savedA4Calibration", 436);
            s.setString("kRatingPromptCurrentVersion", "1.0");
            s.synchronize();
            s.synchronize();
            EXPECT_EQ(s.integerForKey("savedA4Calibration"), 436) << c.what;
            EXPECT_EQ(contents(path), before) << c.what;
            ASSERT_EQ(log.lines.size(), 1u) << c.what;
            EXPECT_NE(log.lines[0].find("could not be written to " + path.toStdString()), std::string::npos)
                << log.lines[0];
            user.reset();
            c.unblock(path);
            s.synchronize();
            EXPECT_EQ(log.lines.back(), "Settings saved again to " + path.toStdString()) << c.what;
        }
        QtSettingsStore reread(path, log);
        EXPECT_EQ(reread.integerForKey("savedA4Calibration"), 436) << c.what;
        EXPECT_EQ(reread.stringForKey("kRatingPromptCurrentVersion"), "1.0") << c.what;
    }
}

// A folder where the file should be is someone's folder: left alone, with the
// settings kept for the session.
TEST(QtSettingsStore, FolderInPlaceOfTheFileIsLeftAlone) {
    QTemporaryDir dir;
    const QString path = dir.filePath("settings.ini");
    ASSERT_TRUE(QDir().mkpath(path + "/inside"));
    RecordingLog log;
    QtSettingsStore s(path, log);
    s.setInteger("savedA4Calibration", 436);
    s.synchronize();
    s.synchronize();
    EXPECT_EQ(s.integerForKey("savedA4Calibration"), 436);
    EXPECT_EQ(log.lines, std::vector<std::string>{"Settings file " + path.toStdString() +
                                                  " is a folder; settings will not be saved this session"});
    EXPECT_TRUE(QFileInfo(path + "/inside").isDir());
}

} // namespace
} // namespace uke
