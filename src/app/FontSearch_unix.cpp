#include "app/FontSearch.h"

#include <fontconfig/fontconfig.h>

std::jthread LookForFonts() {
    return std::jthread([] { FcInit(); });
}
