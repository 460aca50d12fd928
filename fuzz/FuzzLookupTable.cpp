#include "Fuzz.h"

#include "sensor/CompensationEntry.h"
#include "sensor/LookupTableFile.h"

using namespace pelorin;

void take(const QByteArray& bytes)
{
    const auto table = lookupTableOf(bytes);
    if (!table)
        return;
    for (const CompensationEntry& entry : *table)
        fuzz::require(entryOf(textsOf(entry)) == entry);
    fuzz::require(lookupTableOf(lookupTableText(*table)) == table);
}
