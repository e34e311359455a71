// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Table/TableView.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

namespace quor::test {

/// Rows of labels that record the calls of the table. Row `searchRow` is a text field.
class LabelRows final : public platform::TableViewDataSource, public platform::TableViewDelegate {
public:
    using Table = platform::TableView;
    int numberOfRows(const Table& /*table*/) const override { return count_; }
    int heightOfRow(const Table& /*table*/, int row) const override
    {
        ++heightsAsked;
        return heights.empty() ? 20 : heights.at(static_cast<std::size_t>(row) % heights.size());
    }
    QWidget* viewForRow(Table& table, int row) override
    {
        if (row == searchRow)
            return searchField;
        auto* label = qobject_cast<QLabel*>(table.makeView(QStringLiteral("label")));
        if (!label) {
            label = new QLabel;
            label->setObjectName(QStringLiteral("label"));
            ++labelsMade;
        }
        label->setText(text(row));
        return label;
    }
    bool shouldSelectRow(const Table& /*table*/, int row) const override
    {
        return !barred.contains(row) && row != searchRow;
    }
    QString typeSelectString(const Table& /*table*/, int row) const override { return text(row); }
    void didClickRow(Table& /*table*/, int row) override { clicks.push_back(row); }
    void pointerDidHoverRow(Table& /*table*/, int row) override { hovers.push_back(row); }
    void pointerDidLeave(Table& /*table*/) override { hovers.push_back(left); }

    QString text(int row) const
    {
        const auto known = texts.find(row);
        return known == texts.end() ? QStringLiteral("Row %1").arg(row) : known->second;
    }

    static constexpr int left = -2;

    int count_ = 0;
    std::vector<int> heights; // by turns
    std::map<int, QString> texts;
    std::set<int> barred;
    int searchRow = -1;
    QLineEdit* searchField = nullptr; // the table's once shown
    mutable int heightsAsked = 0;
    int labelsMade = 0;
    std::vector<int> clicks;
    std::vector<int> hovers;
};

/// A table of 200 by 200 pixels at the screen's upper left, with rows 20 pixels high.
template <typename Table>
class TableFixture : public testing::Test {
protected:
    void show(int count)
    {
        rows.count_ = count;
        table.setFrameShape(QFrame::NoFrame);
        table.setDataSource(&rows);
        table.setDelegate(&rows);
        table.setGeometry(0, 0, 200, 200);
        table.show();
        table.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&table));
        table.reloadData();
    }
    QString shownText(int row) const
    {
        const auto* label = qobject_cast<QLabel*>(table.viewAtRow(row));
        return label ? label->text() : QString();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(&table, key, keys); }
    void movePointer(int x, int y) { QTest::mouseMove(&table, QPoint(x, y)); }
    void click(int row, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, keys, table.viewportRectOfRow(row).center());
    }

    LabelRows rows;
    Table table;
};
using TableViewTest = TableFixture<platform::TableView>;

} // namespace quor::test
