#pragma once

class ConData;

/// Saves the selected rows of the save list one after another, each in its own transaction, and marks what
/// became of them. What is saved stays so, however the run ends.
///
/// Thread: the control's. Both working copies outlive the run; the list may be emptied meanwhile, which ends
/// it.
class SaveRun
{
public:
    enum class Step
    {
        /// A row is done, saved or not.
        More,
        /// There is no row left.
        Done,
        /// The database is in use; the operator has been told.
        Denied,
        /// The run cannot go on; the operator has been told.
        Failed,
    };

    /// `direct`: the connection, with the tables of the nodes' type. `newDirect` gets the connection's name
    /// when another application has changed it.
    SaveRun(ConData& direct, ConData& newDirect) : m_direct(direct), m_newDirect(newDirect) {}

    [[nodiscard]] Step SaveNext();
    /// Rows that are done.
    [[nodiscard]] int SavedCount() const { return m_savedCount; }

private:
    ConData& m_direct;
    ConData& m_newDirect;
    int m_savedCount = 0;
};
