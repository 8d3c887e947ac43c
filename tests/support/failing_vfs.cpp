#include "tests/support/failing_vfs.h"

#include <cstring>
#include <limits>
#include <new>
#include <sqlite3.h>

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
};

Plan plan;

/// Counts a change or a reading, whichever the plan is about; true if it has to fail.
bool Fails(bool reading) {
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

/// What changes nothing goes to the real file as it is.
template <auto Member>
struct Forward;
template <class Result, class... Arguments,
          Result (*sqlite3_io_methods::*Member)(sqlite3_file*, Arguments...)>
struct Forward<Member> {
    static Result Call(sqlite3_file* file, Arguments... arguments) {
        return (Real(file)->pMethods->*Member)(Real(file), arguments...);
    }
};

const sqlite3_io_methods kMethods = {
    2,
    Close,
    Read,
    Write,
    Truncate,
    Sync,
    Forward<&sqlite3_io_methods::xFileSize>::Call,
    Forward<&sqlite3_io_methods::xLock>::Call,
    Forward<&sqlite3_io_methods::xUnlock>::Call,
    Forward<&sqlite3_io_methods::xCheckReservedLock>::Call,
    Forward<&sqlite3_io_methods::xFileControl>::Call,
    Forward<&sqlite3_io_methods::xSectorSize>::Call,
    Forward<&sqlite3_io_methods::xDeviceCharacteristics>::Call,
    Forward<&sqlite3_io_methods::xShmMap>::Call,
    Forward<&sqlite3_io_methods::xShmLock>::Call,
    Forward<&sqlite3_io_methods::xShmBarrier>::Call,
    Forward<&sqlite3_io_methods::xShmUnmap>::Call,
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
    plan = Plan();
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

bool FailingStorage::HasFailed() const {
    return plan.failed;
}

}  // namespace tests
