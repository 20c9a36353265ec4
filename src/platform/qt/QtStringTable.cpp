// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtStringTable.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <map>
#include <memory>

namespace uke {

namespace {

QString qmPath(const QString& language, const QString& directory) {
    return directory + QStringLiteral("/uketuner_") + language + QStringLiteral(".qm");
}

} // namespace

bool QtStringTable::load(const QString& language, const QString& directory) {
    const QString lang = primaryLanguage(language);
    if (lang.isEmpty() || !translator_.load(qmPath(lang, directory)))
        return false;
    language_ = lang;
    return true;
}

std::optional<std::string> QtStringTable::lookup(const std::string& key, const std::string& table) const {
    // A missing message translates to a null string; lrelease drops empty translations.
    const QString text = translator_.translate(table.c_str(), key.c_str());
    if (text.isEmpty())
        return std::nullopt;
    return text.toStdString();
}

void QtStringTable::installForViews() {
    static QTranslator* installed = nullptr;
    if (installed == &translator_ || !QCoreApplication::instance())
        return;
    if (installed)
        QCoreApplication::removeTranslator(installed);
    QCoreApplication::installTranslator(&translator_);
    installed = &translator_;
}

QString primaryLanguage(const QString& code) {
    QString lang = code.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('@'), 0, 0);
    lang = lang.section(QLatin1Char('_'), 0, 0).section(QLatin1Char('-'), 0, 0).toLower();
    if (lang.size() < 2 || lang.size() > 3)
        return {};
    for (const QChar c : lang)
        if (c < QLatin1Char('a') || c > QLatin1Char('z'))
            return {};
    return lang;
}

QString chooseLanguage(const QStringList& preferred, const QString& directory) {
    for (const QString& code : preferred) {
        const QString lang = primaryLanguage(code);
        if (!lang.isEmpty() && QFileInfo::exists(qmPath(lang, directory)))
            return lang;
    }
    return QStringLiteral("en");
}

QtStringTable& qtStringsForLanguage(const QString& language) {
    static std::map<QString, std::unique_ptr<QtStringTable>> tables;
    const QString lang = chooseLanguage(language.isEmpty() ? QLocale::system().uiLanguages() : QStringList{language});
    auto& slot = tables[lang];
    if (!slot) {
        slot = std::make_unique<QtStringTable>();
        slot->load(lang);
    }
    return *slot;
}

} // namespace uke
