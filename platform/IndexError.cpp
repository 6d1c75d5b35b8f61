#include "platform/IndexError.h"

#include <string>

IndexError::IndexError(const char* what, int value, int low, int high)
    : std::out_of_range("Index out of range: " + std::string(what) + " " + std::to_string(value) +
                        ", allowed " + std::to_string(low) + " to " + std::to_string(high))
{}
