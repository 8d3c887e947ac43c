#include "tests/support/failing_vfs.h"

#include <cstring>
#include <limits>
#include <new>
#include <sqlite3.h>
#include <utility>

namespace tests {
namespace {

constexpr int kNever = std::numeric_limits<int>::max();

struct Plan {
    int changes = 0;
    int first = kNever;  ///< the first change that fails
    int last = kNever;
    StorageFault fault = StorageFault::DiskFull;
    bool readOnly = false;
    bool failed = false;
    std::function<void()> look = {};
};

Plan plan;

/// Counts a change or a reading, whichever the plan is about; true if it has to fail.
bool Fails(bool reading) {
    if (!reading && plan.look) plan.look();
    if (reading != (plan.fault == StorageFault::ReadError)) return false;
    ++plan.changes;
    const bool fails = plan.changes >= plan.first && plan.changes <= plan.last;
    plan.failed = plan.failed || fails;
    return fails;
}

int Code(int ioError) {
    return plan.fault == StorageFault::DiskFull ? SQLITE_FULL : ioError;
}

/// Our file; the real one lies directly behind it in the same piece of memory.
struct File {
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_file* Real(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->real;
}

template <class Call>
int Change(sqlite3_file* file, int ioError, Call call) {
    if (plan.readOnly) return SQLITE_READONLY;
    return Fails(false) ? Code(ioError) : call(Real(file));
}

int Close(sqlite3_file* file) {
    return Real(file)->pMethods ? Real(file)->pMethods->xClose(Real(file)) : SQLITE_OK;
}

int Read(sqlite3_file* file, void* buffer, int amount, sqlite3_int64 offset) {
    if (Fails(true)) return SQLITE_IOERR_READ;
    return Real(file)->pMethods->xRead(Real(file), buffer, amount, offset);
}

int Write(sqlite3_file* file, const void* buffer, int amount, sqlite3_int64 offset) {
    return Change(file, SQLITE_IOERR_WRITE,
                  [&](sqlite3_file* real) { return real->pMethods->xWrite(real, buffer, amount, offset); });
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    return Change(file, SQLITE_IOERR_TRUNCATE,
                  [&](sqlite3_file* real) { return real->pMethods->xTruncate(real, size); });
}

int Sync(sqlite3_file* file, int flags) {
    return Change(file, SQLITE_IOERR_FSYNC,
                  [&](sqlite3_file* real) { return real->pMethods->xSync(real, flags); });
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return Real(file)->pMethods->xFileSize(Real(file), size);
}

int Lock(sqlite3_file* file, int level) {
    return Real(file)->pMethods->xLock(Real(file), level);
}

int Unlock(sqlite3_file* file, int level) {
    return Real(file)->pMethods->xUnlock(Real(file), level);
}

int CheckReservedLock(sqlite3_file* file, int* result) {
    return Real(file)->pMethods->xCheckReservedLock(Real(file), result);
}

int FileControl(sqlite3_file* file, int operation, void* argument) {
    return Real(file)->pMethods->xFileControl(Real(file), operation, argument);
}

int SectorSize(sqlite3_file* file) {
    return Real(file)->pMethods->xSectorSize(Real(file));
}

int DeviceCharacteristics(sqlite3_file* file) {
    return Real(file)->pMethods->xDeviceCharacteristics(Real(file));
}

int ShmMap(sqlite3_file* file, int page, int size, int extend, void volatile** memory) {
    return Real(file)->pMethods->xShmMap(Real(file), page, size, extend, memory);
}

int ShmLock(sqlite3_file* file, int offset, int n, int flags) {
    return Real(file)->pMethods->xShmLock(Real(file), offset, n, flags);
}

void ShmBarrier(sqlite3_file* file) {
    Real(file)->pMethods->xShmBarrier(Real(file));
}

int ShmUnmap(sqlite3_file* file, int remove) {
    return Real(file)->pMethods->xShmUnmap(Real(file), remove);
}

const sqlite3_io_methods kMethods = {
    2,
    Close,
    Read,
    Write,
    Truncate,
    Sync,
    FileSize,
    Lock,
    Unlock,
    CheckReservedLock,
    FileControl,
    SectorSize,
    DeviceCharacteristics,
    ShmMap,
    ShmLock,
    ShmBarrier,
    ShmUnmap,
    nullptr,
    nullptr,
};

sqlite3_vfs* Below(sqlite3_vfs* vfs) {
    return static_cast<sqlite3_vfs*>(vfs->pAppData);
}

int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto* ours = new (file) File{};
    ours->real = reinterpret_cast<sqlite3_file*>(ours + 1);
    std::memset(ours->real, 0, static_cast<size_t>(Below(vfs)->szOsFile));
    if (plan.readOnly) {
        if ((flags & SQLITE_OPEN_MAIN_DB) == 0) return SQLITE_CANTOPEN;
        flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
    }
    const int code = Below(vfs)->xOpen(Below(vfs), name, ours->real, flags, outFlags);
    // The engine closes a file that failed to open only if it has methods.
    if (code == SQLITE_OK) ours->base.pMethods = &kMethods;
    return code;
}

int Delete(sqlite3_vfs* vfs, const char* name, int syncFolder) {
    if (plan.readOnly) return SQLITE_READONLY;
    return Fails(false) ? Code(SQLITE_IOERR_DELETE) : Below(vfs)->xDelete(Below(vfs), name, syncFolder);
}

void Register() {
    static sqlite3_vfs layer = [] {
        sqlite3_vfs* below = sqlite3_vfs_find(nullptr);
        sqlite3_vfs made = *below;  // times, random bytes, paths and sleeping need nothing of the file
        made.pNext = nullptr;
        made.zName = "failing";
        made.szOsFile = static_cast<int>(sizeof(File)) + below->szOsFile;
        made.pAppData = below;
        made.xOpen = Open;
        made.xDelete = Delete;
        made.xAccess = [](sqlite3_vfs* vfs, const char* name, int flags, int* result) {
            return Below(vfs)->xAccess(Below(vfs), name, flags, result);
        };
        made.xFullPathname = [](sqlite3_vfs* vfs, const char* name, int size, char* path) {
            return Below(vfs)->xFullPathname(Below(vfs), name, size, path);
        };
        return made;
    }();
    static const int registered = sqlite3_vfs_register(&layer, 0);
    if (registered != SQLITE_OK) throw std::bad_alloc();
}

}  // namespace

FailingStorage::FailingStorage() {
    plan = Plan();
    Register();
}

FailingStorage::~FailingStorage() {
    plan = Plan();
}

void FailingStorage::FailAt(int n, StorageFault fault, bool andAllAfter) {
    plan = Plan{.look = std::move(plan.look)};
    plan.first = n;
    plan.last = andAllAfter ? kNever : n;
    plan.fault = fault;
}

void FailingStorage::RefuseWriting() {
    plan.readOnly = true;
}

void FailingStorage::Heal() {
    plan.first = kNever;
    plan.last = kNever;
    plan.readOnly = false;
}

void FailingStorage::BeforeEachChange(std::function<void()> look) {
    plan.look = std::move(look);
}

int FailingStorage::Changes() const {
    return plan.changes;
}

bool FailingStorage::HasFailed() const {
    return plan.failed;
}

}  // namespace tests
