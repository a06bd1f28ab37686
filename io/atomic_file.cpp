#include "io/atomic_file.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <csignal>
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

/// What the rest of TakeName does between two names, with system calls only: it runs in a process
/// of its own beside a parent that stands still.
bool Link(const char* open, const char* path, const char* second, Survives survives) {
    const auto link = [open](const char* name) {
        return ::linkat(AT_FDCWD, open, AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
    };
    if (link(path)) return true;
    if (errno != EEXIST || !link(second)) return false;
    // ext4 sends a file that is renamed over another one to the disk at once, 1.4 ms; what changes
    // places with the other one takes its time.
    const bool exchanged = survives == Survives::Kill &&
                           ::renameat2(AT_FDCWD, second, AT_FDCWD, path, RENAME_EXCHANGE) == 0;
    const bool taken = exchanged || ::rename(second, path) == 0;
    if (exchanged || !taken) ::unlink(second);
    return taken;
}

/// Gives an open file without a name the name `path`, in place of what has it, by way of the name
/// `second`. False where that is not possible. A child does it, so that a kill of this process in
/// between does not leave the second name behind.
bool TakeName(int file, const QByteArray& path, const QByteArray& second, Survives survives) {
    const QByteArray open = "/proc/self/fd/" + QByteArray::number(file);
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t child = ::vfork();
    if (child == 0)
        ::_exit(Link(open.constData(), path.constData(), second.constData(), survives) ? 0 : 1);
    int status = 1;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (child < 0) return Link(open.constData(), path.constData(), second.constData(), survives);
    return status == 0;
}

/// Writes a file that has no name until it is complete, so that a process that is killed leaves
/// nothing behind. Nothing where the file system does not know such files.
std::optional<Status> WriteUnnamed(const QString& path, const QByteArray& content,
                                   const QString& second, Survives survives) {
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
    if (survives == Survives::PowerCut && ::fsync(descriptor) != 0)
        return Failed(static_cast<std::errc>(errno));
    if (!TakeName(descriptor, QFile::encodeName(target), QFile::encodeName(second), survives))
        return {};
    return Status();
}

/// Devices and pipes cannot be replaced, only written to.
Status WriteDirectly(const QString& path, const QByteArray& content) {
    if (QFileInfo(path).isDir()) return Failed(std::errc::is_a_directory);
    QFile file(path);
    return OpenAndWrite(file, content);
}

Status WriteWhole(const QString& path, const QByteArray& content, Survives survives) {
    if (path.isEmpty()) return Status::Failure("No file name");
    if (IsSpecial(path)) return WriteDirectly(path, content);
    const QFileInfo info(path);
    const QString target = info.exists() ? info.canonicalFilePath() : path;
    const QString second = QStringLiteral("%1.%2.new").arg(target).arg(::getpid());
    if (const auto done = WriteUnnamed(path, content, second, survives)) return *done;
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
    constexpr auto survives = Survives::PowerCut;
    if (path.isEmpty() || IsSpecial(path)) return WriteWhole(path, content, survives);
    QFileInfo target(path);
    if (target.exists()) target.setFile(target.canonicalFilePath());
    if (target.exists() && !target.isWritable()) return Failed(std::errc::permission_denied);
    const QString temporary = FreeName(target, suffix);
    if (const auto done = WriteUnnamed(path, content, temporary, survives)) return *done;
    if (Status status = WriteWhole(temporary, content, survives); !status) return status;
    if (target.exists()) QFile::setPermissions(temporary, target.permissions());
    return Rename(temporary, target.filePath());
}

Status About(const QString& path, const Status& status) {
    if (status) return {};
    return Status::Failure("Cannot write \"" + path.toStdString() + "\": " + status.message() +
                           '.');
}

}  // namespace

Status WriteAtomically(const QString& path, const QByteArray& content, Survives survives) {
    return About(path, WriteWhole(path, content, survives));
}

Status WriteByWayOf(const QString& suffix, const QString& path, const QByteArray& content) {
    return About(path, WriteThenRename(suffix, path, content));
}

}  // namespace kelvro
