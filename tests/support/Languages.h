#pragma once

#include "platform/core/LanguageManager.h"

namespace pelorin::test {

/// The installed language modules, one of them loaded.
class Languages : public LanguageManager
{
public:
    explicit Languages(int code)
    {
        // An installation path of another system stands for the folder beside the executable.
        init(QStringLiteral("C:\\Pelorin\\"), QStringLiteral("Pelorin"));
        if (loadLanguage(code) != 1)
            qFatal("Language %d cannot be loaded", code);
    }
};

} // namespace pelorin::test
