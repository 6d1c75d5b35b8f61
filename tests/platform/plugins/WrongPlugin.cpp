#include "WrongPlugin.h"
