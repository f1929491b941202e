#pragma once

#include <QString>

/// Where the program lives and where it may leave things, set once by the start. Both end in the
/// platform's separator.
struct AppPaths {
    QString AppPath;  ///< folder of the executable
    QString TempPath; ///< the user's temporary folder
};

/// The one instance, alive until the process ends.
AppPaths& Paths();
