#pragma once

namespace tally::Prompts {

/// While one lives, a box counts as open; see AreOpen. Each box has its own, and so has long work that lets
/// the window be painted between its steps: no screen, command or help may start beside it.
class OpenBox
{
public:
    OpenBox();
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;
    ~OpenBox();
};

} // namespace tally::Prompts
