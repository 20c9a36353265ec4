// `uke screen`: start-up, scripted actions and what it prints.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "Commands.h"
#include "base/SharedState.h"

namespace uke::tool {
namespace {

struct Result {
    int status;
    std::string out, err;
};

Result screen(std::vector<std::string> words) {
    words.insert(words.begin(), "screen");
    std::ostringstream out, err;
    const int status = run(words, out, err);
    return {status, out.str(), err.str()};
}

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(ScreenCommand, JsonCarriesOutletsLogAndSettings) {
    // The demonstration picture rewrites the strings and the lamp at every tick.
    if (demoModeEnabled)
        GTEST_SKIP();
    const Result r = screen({"--lang", "es", "--format", "json", "--do", "select-language 2"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(r.out.rfind("{\"outlets\": {\"freq_label\": {\"text\": \"\", \"hidden\": false}", 0), 0u) << r.out;
    EXPECT_TRUE(has(r.out, "\"firstString\": {\"text\": \"La4\", \"hidden\": false}"));
    EXPECT_TRUE(has(r.out, "\"a4TFButton\": {\"title\": \"La4\", \"hidden\": false}"));
    EXPECT_TRUE(has(r.out, "\"micSensitivitySlider\": {\"value\": 5.0, \"hidden\": false}"));
    EXPECT_TRUE(has(r.out, "\"soundNotificationSwitch\": {\"on\": true, \"hidden\": false}"));
    EXPECT_TRUE(has(r.out, "\"tunedString\": {\"image\": \"\", \"hidden\": true}"));
    EXPECT_TRUE(has(r.out, "\"goToChordsLibraryButton\": {\"title\": \"\", \"image\": \"chord_icon.png\""));
    EXPECT_TRUE(has(r.out, "\"establecerIdioma\": {\"value\": 2, \"rows\": [\"Idioma del dispositivo\""));
    EXPECT_TRUE(has(r.out, "\"calibrationLabel\": {\"text\": \"Calibración La4 =\""));
    EXPECT_TRUE(has(r.out, "\"log\": [\"iPhone has a height of: 844.000000\""));
    EXPECT_TRUE(has(r.out, "\"Me abriste por primera vez, voy a borrar los defaults\""));
    EXPECT_TRUE(has(r.out, "\"SavedLanguage\": 2"));
    EXPECT_TRUE(has(r.out, "\"soundNotificationEnabled\": true"));
    EXPECT_EQ(r.out.substr(r.out.size() - 3), "}}\n");
}

TEST(ScreenCommand, ActionsRunInOrderOnTheVirtualClock) {
    // The demonstration picture rewrites the strings and the lamp at every tick.
    if (demoModeEnabled)
        GTEST_SKIP();
    const Result r = screen({"--lang", "en", "--do", "slider 4.6", "--do", "stepper 442", "--do", "switch chart off",
                             "--do", "next", "--do", "wait 0.5", "--do", "appear"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_TRUE(has(r.out, "micSensitivityValue: 4\n  bottomLimit: 0.003000\n  topLimit: 0.005500\n"));
    EXPECT_TRUE(has(r.out, "  Frequency chart IS NOT enabled: 0\n  Ahora chosenTuning es: 2\n"));
    EXPECT_TRUE(has(r.out, "  savedSliderValue = 5\n"));
    EXPECT_TRUE(has(r.out, "  savedA4Calibration = 442\n"));
    EXPECT_TRUE(has(r.out, "  currentTuningName         label   text=\"Low G  G C E A\"\n"));
    EXPECT_TRUE(has(r.out, "  micSensitivitySlider      slider  value=5.0\n"));
    EXPECT_TRUE(has(r.out, "  calibrationFrequencyValue label   text=\"442\"\n"));
    // The chart stays as tuning 1 left it: the switch is off.
    EXPECT_TRUE(has(r.out, "  firstStringNoteAndFreq    label   text=\"A4 = 440.0Hz\"\n"));
    EXPECT_TRUE(has(r.out, "  freqChartSwitch           switch  off\n"));
}

TEST(ScreenCommand, LanguageAndDeviceShapeTheScreen) {
    const Result ru = screen({"--lang", "ru_RU.UTF-8", "--device", "pad-1194", "--do", "select-language 5"});
    ASSERT_EQ(ru.status, 0) << ru.err;
    EXPECT_TRUE(has(ru.out, "text=\"Ля\"\n"));
    EXPECT_TRUE(has(ru.out, "text=\"Ля4 = 440.0Гц\"\n"));
    EXPECT_TRUE(has(ru.out, "iPad has a height of: 1194.000000"));
    EXPECT_TRUE(has(ru.out, "image=\"chord_icon_large.png\"") || has(ru.out, "image=\"chord_icon.png\""));

    const Result unknown = screen({"--lang", "xx"});
    ASSERT_EQ(unknown.status, 0) << unknown.err;
    EXPECT_TRUE(has(unknown.out, "text=\"Standard  G C E A\""));

    const Result odd = screen({"--device", "phone-700"});
    ASSERT_EQ(odd.status, 0) << odd.err;
    EXPECT_TRUE(has(odd.out, "No layout for phone-700; using Main_iPhone6 (phone-667)"));
}

TEST(ScreenCommand, BadInputIsOneLineAndStatusTwo) {
    const std::vector<std::vector<std::string>> cases = {
        {"--do", "dance"},
        {"--do", ""},
        {"--do", "select-language 6"},
        {"--do", "select-language 1.5"},
        {"--do", "slider 11"},
        {"--do", "slider"},
        {"--do", "stepper 400"},
        {"--do", "stepper nan"},
        {"--do", "switch lamp on"},
        {"--do", "switch beep maybe"},
        {"--do", "wait -1"},
        {"--do", "previous"},
        {"--do", "next", "--do", "next", "--do", "next", "--do", "next", "--do", "next", "--do",
         "next", "--do", "next", "--do", "next", "--do", "next", "--do", "next", "--do", "next"},
        {"--device", "watch-200"},
        {"--lang", "1"},
        {"--format", "xml"},
        {"--do"},
        {"stray"},
        {"--colour", "red"},
    };
    for (const auto& words : cases) {
        const Result r = screen(words);
        std::string joined;
        for (const auto& w : words)
            joined += w + " ";
        EXPECT_EQ(r.status, 2) << joined;
        EXPECT_EQ(r.out, "") << joined;
        EXPECT_EQ(r.err.rfind("uke screen: ", 0), 0u) << joined << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << joined << r.err;
    }
}

class SettingsFile : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("uke-screen-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir);
        path = (dir / "settings.ini").string();
    }
    void TearDown() override { std::filesystem::remove_all(dir); }
    std::filesystem::path dir;
    std::string path;
};

TEST_F(SettingsFile, IsReadAndWrittenBackAcrossRuns) {
    Result first = screen({"--settings", path, "--do", "select-language 2"});
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_TRUE(has(first.out, "text=\"La4\""));
    std::ifstream in(path);
    std::stringstream stored;
    stored << in.rdbuf();
    EXPECT_TRUE(has(stored.str(), "SavedLanguage=2\n"));

    // A relaunch: the stored row alone brings no naming back; the run count grows.
    Result second = screen({"--settings", path});
    ASSERT_EQ(second.status, 0) << second.err;
    EXPECT_TRUE(has(second.out, "  firstString               label   text=\"A4\"\n"));
    EXPECT_TRUE(has(second.out, "  numberOfRuns = 2\n"));
    EXPECT_FALSE(has(second.out, "Me abriste por primera vez"));
}

TEST_F(SettingsFile, ADamagedFileIsRefusedUntouched) {
    {
        std::ofstream out(path);
        out << "[General]\nthis line is not a setting\n";
    }
    const Result r = screen({"--settings", path});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.err, "uke screen: cannot read settings file " + path + ": line 2 is not key=value\n");
    std::ifstream in(path);
    std::stringstream kept;
    kept << in.rdbuf();
    EXPECT_EQ(kept.str(), "[General]\nthis line is not a setting\n");
}

} // namespace
} // namespace uke::tool
