#include "app/desktop/services/FileFilter.h"

#include "app/desktop/services/MediaEndings.h"
#include "core/intake/Intake.h"

#include <QDBusMetaType>

namespace murbo {
namespace {

constexpr uint globPattern = 0; ///< rather than a media type

QStringList movies() {
    QStringList endings;
    for (const auto& ending : Intake::movieEndings()) endings.append(QString::fromStdString(ending));
    return endings;
}

FileFilter filter(const QString& name, const QStringList& endings) {
    FileFilter made{name, {}};
    for (const auto& ending : endings) made.patterns.append({globPattern, FileFilter::pattern(ending)});
    return made;
}

}

QList<FileFilter> FileFilter::of(const QString& kind) {
    const FileFilter all{"All files", {{globPattern, "*"}}};
    const auto pictures = MediaEndings::pictures();
    if (kind == "movies" || kind == "movie") return {filter("Movies", movies()), all};
    if (kind == "sounds") return {filter("Sounds", MediaEndings::sounds()), all};
    if (kind == "media")
        return {filter("Pictures and movies", pictures + movies()), filter("Pictures", pictures),
                filter("Movies", movies()), all};
    if (kind == "markers") return {filter("Markers", MediaEndings::markers()), all};
    return {};
}

QString FileFilter::pattern(const QString& ending) {
    QString pattern = "*.";
    for (const auto letter : ending)
        pattern += letter.isLetter() ? QString("[%1%2]").arg(letter.toLower()).arg(letter.toUpper())
                                     : QString(letter);
    return pattern;
}

void FileFilter::registerTypes() {
    qDBusRegisterMetaType<FilePattern>();
    qDBusRegisterMetaType<QList<FilePattern>>();
    qDBusRegisterMetaType<FileFilter>();
    qDBusRegisterMetaType<QList<FileFilter>>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const FilePattern& pattern) {
    argument.beginStructure();
    argument << pattern.type << pattern.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FilePattern& pattern) {
    argument.beginStructure();
    argument >> pattern.type >> pattern.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const FileFilter& filter) {
    argument.beginStructure();
    argument << filter.name << filter.patterns;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FileFilter& filter) {
    argument.beginStructure();
    argument >> filter.name >> filter.patterns;
    argument.endStructure();
    return argument;
}

}
