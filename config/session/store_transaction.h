// A transaction of a store for a scope: what isn't committed is taken back at its end.
#pragma once

#include "profile/key.h"

namespace ostrand {

class StoreTransaction {
public:
    explicit StoreTransaction(const VProfileStore& store) : m_extras(store.Extras()) {}
    ~StoreTransaction()
    {
        if (m_isOpen)
            m_extras.RollBackTransaction();
    }
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;

    bool Begin(IReportMessageParams& report) { return m_isOpen = m_extras.BeginTransaction(report); }
    bool Commit(IReportMessageParams& report)
    {
        m_isOpen = !m_extras.CommitTransaction(report);
        return !m_isOpen;
    }

private:
    IStoreExtras& m_extras;
    bool m_isOpen = false;
};

} // namespace ostrand
