#include "io/atomic_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <filesystem>
#include <system_error>

namespace kelvro {

namespace {

constexpr int kMostNames = 1000;

/// Why a step failed; nothing when it did not.
using Reason = std::optional<QString>;

QString SystemText(std::errc error) {
    return QString::fromStdString(std::make_error_code(error).message());
}

/// Neither a regular file nor missing: a device, a pipe or a folder.
bool IsSpecial(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

/// Without a buffer, since QSaveFile::commit overlooks that the rest of a buffer did not fit on the
/// disk. A full disk takes a part first; what does not fit then tells the reason.
Reason OpenAndWrite(QFileDevice& file, const QByteArray& content) {
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return file.errorString();
    for (qsizetype done = 0; done < content.size();) {
        const qint64 written = file.write(content.constData() + done, content.size() - done);
        if (written <= 0) return file.errorString();
        done += written;
    }
    return {};
}

/// Devices and pipes cannot be replaced, only written to.
Reason WriteDirectly(const QString& path, const QByteArray& content) {
    if (QFileInfo(path).isDir()) return SystemText(std::errc::is_a_directory);
    QFile file(path);
    return OpenAndWrite(file, content);
}

Reason WriteWhole(const QString& path, const QByteArray& content) {
    if (path.isEmpty()) return QStringLiteral("No file name");
    if (IsSpecial(path)) return WriteDirectly(path, content);
    QSaveFile file(path);
    if (Reason reason = OpenAndWrite(file, content)) return reason;
    if (!file.commit()) return file.errorString();
    return {};
}

/// "folder/name.TMP", or "folder/name-2.TMP" and so on where that exists; empty when all are taken.
QString FreeName(const QFileInfo& target, const QString& suffix) {
    const QString base = target.dir().filePath(target.completeBaseName());
    QString name = base + '.' + suffix;
    for (int i = 2; QFileInfo::exists(name); ++i) {
        if (i == kMostNames) return {};
        name = base + '-' + QString::number(i) + '.' + suffix;
    }
    return name;
}

Reason Rename(const QString& from, const QString& to) {
    const std::filesystem::path source(from.toStdU16String());
    const std::filesystem::path target(to.toStdU16String());
    std::error_code error;
    std::filesystem::rename(source, target, error);
    if (!error) return {};
    QFile::remove(from);
    return QString::fromStdString(error.message());
}

Reason WriteThenRename(const QString& suffix, const QString& path, const QByteArray& content) {
    if (path.isEmpty() || IsSpecial(path)) return WriteWhole(path, content);
    QFileInfo target(path);
    if (target.exists()) target.setFile(target.canonicalFilePath());
    if (target.exists() && !target.isWritable()) return SystemText(std::errc::permission_denied);
    const QString temporary = FreeName(target, suffix);
    if (Reason reason = WriteWhole(temporary, content)) return reason;
    if (target.exists()) QFile::setPermissions(temporary, target.permissions());
    return Rename(temporary, target.filePath());
}

std::optional<QString> Message(const QString& path, const Reason& reason) {
    if (!reason) return {};
    return QStringLiteral("Cannot write \"%1\": %2.").arg(path, *reason);
}

}  // namespace

std::optional<QString> WriteAtomically(const QString& path, const QByteArray& content) {
    return Message(path, WriteWhole(path, content));
}

std::optional<QString> WriteByWayOf(const QString& suffix, const QString& path,
                                    const QByteArray& content) {
    return Message(path, WriteThenRename(suffix, path, content));
}

}  // namespace kelvro
