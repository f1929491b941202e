#include "core/AppValues.h"

AppValues& App() {
    static AppValues values;
    return values;
}
