// make-frozen-file PATH: makes tests/schema/frozen.dat, a small data file as the program locks it. It was
// made once, by the engine of the first release, and stays as it is: its test proves that files of that time
// are read. Only where files are locked in another way from some release on is a second one made, under
// another name, beside the first.
#include "platform/dao/engine.h"
#include "schema/names.h"

#include <QString>

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    try {
        const auto engine = dao::OpenEngine(QString::fromLocal8Bit(argv[1]), schema::kPassword);
        dao::Run(engine.get(),
                 "create table TE1 (F1 TEXT COLLATE NOCASE, F2 TEXT COLLATE NOCASE);"
                 "insert into TE1 values ('001','管理员'),('002','李四');"
                 "pragma user_version = 1");
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
