#pragma once

#include <QtGlobal>

/// How often a test repeats: `few` times in an ordinary run, `many` in a soak run.
inline int SoakCount(int few, int many) {
    return qEnvironmentVariableIsSet("RANKELO_SOAK") ? many : few;
}
