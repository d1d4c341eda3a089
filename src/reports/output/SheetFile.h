#pragma once

#include <cstdio>

namespace tally {

/// Sees to it that the file in which the library collects the rows of a sheet is closed in the end. The
/// library only does so once it comes to that sheet; a file that stays open keeps its room on a full disk,
/// though its name is long gone.
class SheetFile
{
public:
    explicit SheetFile(std::FILE* file);
    SheetFile(const SheetFile&) = delete;
    SheetFile& operator=(const SheetFile&) = delete;
    /// Comes when the library has done with the sheet. Closes the file unless the library has.
    ~SheetFile();

private:
    [[maybe_unused]] std::FILE* file_; ///< dangling where the library has closed it
    [[maybe_unused]] int number_ = -1; ///< the descriptor of `file_`
    [[maybe_unused]] int second_ = -1; ///< another one, so that no new file passes for this one
};

} // namespace tally
