#include "stored/QtDriveFolders.h"

#include "app/QtText.h"
#include "stored/FolderChoice.h"
#include "stored/UserVolumes.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <algorithm>

namespace quorvane {
namespace {

std::string Native(const QString& path)
{
    return Typed(QDir::toNativeSeparators(path));
}

/// A disk drive without a disk has no name, and is not asked for one.
std::string VolumeName(const QString& path)
{
    const QStorageInfo volume(path);
    return volume.isValid() && volume.isReady() ? Typed(volume.name()) : std::string();
}

void AddOnce(std::vector<Drive>& drives, Drive drive)
{
    if (std::ranges::find(drives, drive.path, &Drive::path) == drives.end())
        drives.push_back(std::move(drive));
}

void AddVolumes(std::vector<Drive>& drives)
{
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const std::string path = Typed(volume.rootPath());
        if (volume.isReady() && QFileInfo(volume.rootPath()).isDir() &&
            IsUsersVolume(path, Typed(QString::fromLocal8Bit(volume.device())),
                          Typed(QString::fromLatin1(volume.fileSystemType()))))
            AddOnce(drives, {path, Typed(volume.name())});
    }
}

} // namespace

std::vector<Drive> QtDriveFolders::Drives() const
{
    std::vector<Drive> drives;
    bool letters = false;
    for (const QFileInfo& root : QDir::drives()) {
        const std::string path = Native(root.absoluteFilePath());
        letters = HasDriveLetter(path);
        AddOnce(drives, {path, letters ? VolumeName(root.absoluteFilePath()) : std::string()});
    }
    if (!letters) {
        AddOnce(drives, {StartFolder(), {}});
        AddVolumes(drives);
    }
    return drives;
}

bool QtDriveFolders::IsFolder(const std::string& path) const
{
    const QFileInfo folder(Shown(path));
    return folder.isAbsolute() && folder.isDir();
}

bool QtDriveFolders::CanRead(const std::string& drivePath) const
{
    const QString path = Shown(drivePath);
    const QStorageInfo volume(path);
    const QFileInfo folder(path);
    return volume.isValid() && volume.isReady() && folder.isDir() && folder.isReadable();
}

std::string QtDriveFolders::StartFolder() const
{
    return Native(QDir::homePath());
}

} // namespace quorvane
