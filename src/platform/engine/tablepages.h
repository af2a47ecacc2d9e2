// Going through all rows of a table in order of insertion, however many they are.
#pragma once

#include "platform/engine/store.h"

class PagesOf
{
public:
    PagesOf(Store& store, const TableDef& table) : m_store(store), m_table(table) {}

    // The next rows in order of insertion, none at the end.
    const std::vector<Store::Row>& Next()
    {
        m_rows = m_store.Page(m_table, m_lastId);
        if (!m_rows.empty()) m_lastId = m_rows.back().id;
        return m_rows;
    }

private:
    Store& m_store;
    const TableDef& m_table;
    std::vector<Store::Row> m_rows;
    qint64 m_lastId = 0;
};

class RowsOf
{
public:
    RowsOf(Store& store, const TableDef& table) : m_pages(store, table) {}

    const std::vector<QVariant>* Next()
    {
        if (m_page == nullptr || m_at == m_page->size()) {
            m_page = &m_pages.Next();
            m_at = 0;
        }
        return m_page->empty() ? nullptr : &(*m_page)[m_at++].values;
    }

private:
    PagesOf m_pages;
    const std::vector<Store::Row>* m_page = nullptr;
    std::size_t m_at = 0;
};
