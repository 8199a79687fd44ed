// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "support/faulty_disk.h"

#include <sqlite3.h>
#include <unistd.h>

#include <new>
#include <stdexcept>

namespace quode::test {
namespace {

struct Plan {
    FaultyDisk::Fault fault = FaultyDisk::Fault::full;
    int failingStep = 0;
    int steps = 0;
};
Plan plan;

// SQLITE_OK while the disk still works.
int takeStep() {
    const bool fails = ++plan.steps >= plan.failingStep && plan.failingStep > 0;
    if (!fails) return SQLITE_OK;
    if (plan.fault == FaultyDisk::Fault::kill) _exit(9);
    return SQLITE_FULL;
}

struct File {
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_file* realFile(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->real;
}
const sqlite3_io_methods* methods(sqlite3_file* file) {
    return realFile(file)->pMethods;
}

const sqlite3_io_methods faultyMethods = {
    .iVersion = 1,
    .xClose = [](sqlite3_file* file) { return methods(file)->xClose(realFile(file)); },
    .xRead = [](sqlite3_file* file, void* to, int count,
                sqlite3_int64 at) { return methods(file)->xRead(realFile(file), to, count, at); },
    .xWrite =
        [](sqlite3_file* file, const void* from, int count, sqlite3_int64 at) {
            const int result = takeStep();
            return result == SQLITE_OK ? methods(file)->xWrite(realFile(file), from, count, at) : result;
        },
    .xTruncate =
        [](sqlite3_file* file, sqlite3_int64 size) {
            if (plan.fault == FaultyDisk::Fault::kill) takeStep();  // a full disk can make a file shorter
            return methods(file)->xTruncate(realFile(file), size);
        },
    .xSync =
        [](sqlite3_file* file, int flags) {
            const int result = takeStep();
            if (plan.fault == FaultyDisk::Fault::none) return SQLITE_OK;
            return result == SQLITE_OK ? methods(file)->xSync(realFile(file), flags) : result;
        },
    .xFileSize = [](sqlite3_file* file, sqlite3_int64* size) { return methods(file)->xFileSize(realFile(file), size); },
    .xLock = [](sqlite3_file* file, int level) { return methods(file)->xLock(realFile(file), level); },
    .xUnlock = [](sqlite3_file* file, int level) { return methods(file)->xUnlock(realFile(file), level); },
    .xCheckReservedLock = [](sqlite3_file* file,
                             int* out) { return methods(file)->xCheckReservedLock(realFile(file), out); },
    .xFileControl = [](sqlite3_file* file, int op,
                       void* arg) { return methods(file)->xFileControl(realFile(file), op, arg); },
    .xSectorSize = [](sqlite3_file* file) { return methods(file)->xSectorSize(realFile(file)); },
    .xDeviceCharacteristics = [](sqlite3_file* file) { return methods(file)->xDeviceCharacteristics(realFile(file)); },
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

sqlite3_vfs* realDisk = nullptr;
sqlite3_vfs faultyDisk;

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    File* const wrapper = new (file) File{};
    wrapper->real = reinterpret_cast<sqlite3_file*>(wrapper + 1);
    const int result = realDisk->xOpen(realDisk, name, wrapper->real, flags, outFlags);
    if (result == SQLITE_OK) wrapper->base.pMethods = &faultyMethods;
    return result;
}

int deleteFile(sqlite3_vfs*, const char* name, int syncFolder) {
    if (plan.fault == FaultyDisk::Fault::kill) takeStep();  // a full disk can delete files
    return realDisk->xDelete(realDisk, name, syncFolder);
}

bool isRegistered() {
    return realDisk != nullptr;
}

}  // namespace

FaultyDisk::FaultyDisk(Fault fault, int step) {
    if (isRegistered()) throw std::logic_error("there is one faulty disk at a time");
    plan = {fault, step, 0};
    realDisk = sqlite3_vfs_find(nullptr);
    faultyDisk = *realDisk;
    faultyDisk.zName = "faulty";
    faultyDisk.szOsFile = static_cast<int>(sizeof(File)) + realDisk->szOsFile;
    faultyDisk.xOpen = openFile;
    faultyDisk.xDelete = deleteFile;
    sqlite3_vfs_register(&faultyDisk, 1);
}

FaultyDisk::~FaultyDisk() {
    sqlite3_vfs_unregister(&faultyDisk);
    sqlite3_vfs_register(realDisk, 1);
    realDisk = nullptr;
}

int FaultyDisk::steps() const {
    return plan.steps;
}

}  // namespace quode::test
