#include "reports/output/SheetFile.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace tally {

#ifdef Q_OS_UNIX

namespace {

bool AreOneFile(int descriptor, int other)
{
    struct stat file = {};
    struct stat otherFile = {};
    return fstat(descriptor, &file) == 0 && fstat(other, &otherFile) == 0 &&
           file.st_dev == otherFile.st_dev && file.st_ino == otherFile.st_ino;
}

} // namespace

SheetFile::SheetFile(std::FILE* file) : file_(file), number_(fileno(file)), second_(dup(number_)) {}

SheetFile::~SheetFile()
{
    if (AreOneFile(number_, second_))
        std::fclose(file_);
    close(second_);
}

#else

// The system removes such a file, and gives its room back, at the latest when the program ends.
SheetFile::SheetFile(std::FILE* file) : file_(file) {}
SheetFile::~SheetFile() = default;

#endif

} // namespace tally
