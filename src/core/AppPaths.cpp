#include "core/AppPaths.h"

AppPaths& Paths() {
    static AppPaths paths;
    return paths;
}
