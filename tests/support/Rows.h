#pragma once

#include <QTest>

#include <vector>

namespace pelorin::test {

/// Checks the rows of a table one after the other, up to the first that fails, which is named.
/// A row's first member is its name, `name`.
template <class Row, class Check>
void forEachRow(const std::vector<Row>& rows, const Check& check)
{
    for (const Row& row : rows) {
        check(row);
        if (QTest::currentTestFailed()) {
            qWarning("The row that failed: %s", row.name);
            return;
        }
    }
}

} // namespace pelorin::test
