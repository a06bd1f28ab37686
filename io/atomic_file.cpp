#include "io/atomic_file.h"

#include <fcntl.h>
#include <unistd.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstdio>
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

/// A full disk takes a part first; what does not fit then tells the reason.
Status WriteAll(QFileDevice& file, const QByteArray& content) {
    for (qsizetype done = 0; done < content.size();) {
        const qint64 written = file.write(content.constData() + done, content.size() - done);
        if (written <= 0) return Failed(file);
        done += written;
    }
    return {};
}

/// Without a buffer, since QSaveFile::commit overlooks that the rest of a buffer did not fit on the
/// disk.
Status OpenAndWrite(QFileDevice& file, const QByteArray& content) {
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return Failed(file);
    return WriteAll(file, content);
}

/// Gives an open file without a name the name `path`, in place of what has it. False where that is
/// not possible.
bool TakeName(int file, const QByteArray& path) {
    const QByteArray open = "/proc/self/fd/" + QByteArray::number(file);
    const auto link = [&](const QByteArray& name) {
        return ::linkat(AT_FDCWD, open.constData(), AT_FDCWD, name.constData(),
                        AT_SYMLINK_FOLLOW) == 0;
    };
    if (link(path)) return true;
    if (errno != EEXIST) return false;
    const QByteArray second = path + '.' + QByteArray::number(::getpid()) + ".new";
    if (!link(second)) return false;
    if (::rename(second.constData(), path.constData()) == 0) return true;
    ::unlink(second.constData());
    return false;
}

/// Writes a file that has no name until it is complete, so that a process that is killed leaves
/// nothing behind. Nothing where the file system does not know such files.
std::optional<Status> WriteUnnamed(const QString& path, const QByteArray& content) {
    const QFileInfo info(path);
    const QString target = info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
    if (info.isSymLink() && !info.exists()) return {};
    if (info.exists() && !info.isWritable()) return {};
    const QByteArray folder = QFile::encodeName(QFileInfo(target).absolutePath());
    const int descriptor = ::open(folder.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (descriptor < 0) return {};
    QFile file;
    if (!file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                   QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return {};
    }
    if (Status status = WriteAll(file, content); !status) return status;
    if (info.exists()) file.setPermissions(QFile::permissions(target));
    if (::fsync(descriptor) != 0) return Failed(static_cast<std::errc>(errno));
    if (!TakeName(descriptor, QFile::encodeName(target))) return {};
    return Status();
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
    if (const auto done = WriteUnnamed(path, content)) return *done;
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
