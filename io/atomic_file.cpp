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

Status Failed(std::errc error) {
    return Status::Failure(std::make_error_code(error).message());
}

Status Failed(const QFileDevice& file) {
    return Status::Failure(file.errorString().toStdString());
}

/// Neither a regular file nor missing: a device, a pipe or a folder.
bool IsSpecial(const QString& path) {
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

/// Without a buffer, since QSaveFile::commit overlooks that the rest of a buffer did not fit on the
/// disk. A full disk takes a part first; what does not fit then tells the reason.
Status OpenAndWrite(QFileDevice& file, const QByteArray& content) {
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return Failed(file);
    for (qsizetype done = 0; done < content.size();) {
        const qint64 written = file.write(content.constData() + done, content.size() - done);
        if (written <= 0) return Failed(file);
        done += written;
    }
    return {};
}

/// Devices and pipes cannot be replaced, only written to.
Status WriteDirectly(const QString& path, const QByteArray& content) {
    if (QFileInfo(path).isDir()) return Failed(std::errc::is_a_directory);
    QFile file(path);
    return OpenAndWrite(file, content);
}

Status WriteWhole(const QString& path, const QByteArray& content) {
    if (path.isEmpty()) return Status::Failure("No file name");
    if (IsSpecial(path)) return WriteDirectly(path, content);
    QSaveFile file(path);
    if (Status status = OpenAndWrite(file, content); !status) return status;
    if (!file.commit()) return Failed(file);
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

Status Rename(const QString& from, const QString& to) {
    const std::filesystem::path source(from.toStdU16String());
    const std::filesystem::path target(to.toStdU16String());
    std::error_code error;
    std::filesystem::rename(source, target, error);
    if (!error) return {};
    QFile::remove(from);
    return Status::Failure(error.message());
}

Status WriteThenRename(const QString& suffix, const QString& path, const QByteArray& content) {
    if (path.isEmpty() || IsSpecial(path)) return WriteWhole(path, content);
    QFileInfo target(path);
    if (target.exists()) target.setFile(target.canonicalFilePath());
    if (target.exists() && !target.isWritable()) return Failed(std::errc::permission_denied);
    const QString temporary = FreeName(target, suffix);
    if (Status status = WriteWhole(temporary, content); !status) return status;
    if (target.exists()) QFile::setPermissions(temporary, target.permissions());
    return Rename(temporary, target.filePath());
}

Status About(const QString& path, const Status& status) {
    if (status) return {};
    return Status::Failure("Cannot write \"" + path.toStdString() + "\": " + status.message() +
                           '.');
}

}  // namespace

Status WriteAtomically(const QString& path, const QByteArray& content) {
    return About(path, WriteWhole(path, content));
}

Status WriteByWayOf(const QString& suffix, const QString& path, const QByteArray& content) {
    return About(path, WriteThenRename(suffix, path, content));
}

}  // namespace kelvro
