#pragma once

#include <stdexcept>

/// An index outside its range: damaged data, for example a waypoint with more than ten parameters.
class IndexError : public std::out_of_range
{
public:
    /// `what` names the index, `value` is what it was, `low` and `high` what it may be.
    IndexError(const char* what, int value, int low, int high);
};

/// Raises IndexError unless low <= value <= high.
inline void CheckIndex(const char* what, int value, int low, int high)
{
    if (value < low || value > high)
        throw IndexError(what, value, low, high);
}
