#pragma once

#include "model/ItemList.h"
#include "model/TreeEntries.h"
#include "model/WpData.h"

#include <QString>

#include <array>

/// The working copy of one connection and, at the same time, of at most one node reached over it.
///
/// The ten WpData are one shared pool: after a connection load the first ConWpCount hold the connection
/// part, after a node load the first NodeWpCount hold the node part; never both. Indices start at 1; an
/// index outside 1 to 10 raises IndexError.
class ConData
{
public:
    static constexpr int MaxWaypoints = 10;
    /// The type id that stands for "unknown".
    static constexpr int UnknownTypeId = -1;

    ConData();
    ~ConData();
    ConData(const ConData&) = delete;
    ConData& operator=(const ConData&) = delete;

    // Plain fields ----------------------------------------------------------------------------------------

    bool NodeTreeFlag = false;
    /// The trees that the save routines patch; not owned, null outside a command.
    TreeEntries* ConTree = nullptr;
    TreeEntries* NodesTree = nullptr;
    QString ConName;
    qint32 ConDbID = 0;
    /// Short name of the connection's type.
    QString ConTypeName;
    /// Negative: unknown; the waypoints then come from the stored target.
    int ConTypeID = 0;
    /// 1-based index of the waypoint open in the waypoint dialog; 0 when none.
    int SelectedWpIndx = 0;
    int ConWpCount = 0;
    /// The target last composed; empty when composing failed.
    QString TargetString;
    bool ViewNodesChecked = false;
    bool NewCon = false;
    QString NodeName;
    qint32 NodeDbID = 0;
    /// Short name of the node's type; may hold a long name after SetNodeTypeData.
    QString NodeTypeName;
    int NodeTypeID = 0;
    int NodeWpCount = 0;
    bool NewNode = false;
    bool optCon = false;
    /// Device name: the key of the node's manager.
    QString NodeType;
    /// "index|tail" of the node's manager.
    QString CommandLine;
    bool Initialized = false;
    QString Retry;
    QString Time;
    QString NodeAddress;
    bool SelectPressed = false;
    qint32 SelectedTreeNodeIndex = 0;
    /// Rows at the end of a waypoint that the parameter dialogs leave out: 0 or 2.
    int ReduceParameterCount = 0;
    bool SaveFromScan = false;

    // Waypoints -------------------------------------------------------------------------------------------

    void SetConWpName(int waypoint, const QString& name);
    [[nodiscard]] const QString& GetConWpName(int waypoint) const;
    void SetConWpLongName(int waypoint, const QString& name);
    [[nodiscard]] const QString& GetConWpLongName(int waypoint) const;
    void SetConWpId(int waypoint, int id);
    [[nodiscard]] int GetConWpId(int waypoint) const;
    void SetConWpMandatory(int waypoint, const QString& flag);
    [[nodiscard]] const QString& GetConWpMandatory(int waypoint) const;
    [[nodiscard]] int GetConWPiDs(int waypoint) const { return GetConWpId(waypoint); }
    [[nodiscard]] WpData& GetWpData(int waypoint);
    [[nodiscard]] const WpData& GetWpData(int waypoint) const;
    void SetWpDataItem(int waypoint, int row, int column, const QString& value);

    /// No effect; construction does all the work.
    void Initialize() {}
    /// Resets everything but optCon, ViewNodesChecked, SelectedTreeNodeIndex, Initialized and the trees.
    void Clear();
    /// Empties the waypoint data, all but the long names.
    void ClearWP();
    /// Copies the source but NodeType, CommandLine, TargetString, optCon, ViewNodesChecked,
    /// SelectedTreeNodeIndex and the trees. Without saved values column 3 keeps what it held.
    void Copy(const ConData& source, bool includeSavedValues = true);
    /// Column 3 := column 2, for a later cancel.
    void SetParamCopy();
    /// Column 2 := column 3.
    void ResetWpParamValues();
    /// True when a value differs from its saved copy by more than case and blanks at the ends.
    [[nodiscard]] bool ParamValuesChanged() const;
    /// By long name, in the first waypoint of the connection part that has it.
    bool GetWpParamByName(const QString& longName, QString& value) const;
    bool SetWpParamByName(const QString& longName, const QString& value);

    // Parameters that hold for the whole connection (ConDataShared.cpp)
    // ---------------------------------------

    /// Spreads the value where the long name is one of Model().TimeRetryNames.
    void UpdateSharedParameterValues(int editedWaypoint, int waypointCount, const QString& longName,
                                     const QString& value);
    /// Columns 2 and 3 of the rows with that long name (ignoring case) in all other waypoints := value.
    void UpdateOtherWaypoints(int editedWaypoint, int waypointCount, const QString& longName,
                              const QString& value);

    // Loading from the database (ConDataLoading.cpp) --------------------------------------------------------

    /// Empty tables of a connection type.
    bool SetWpDataFromConType(const QString& typeLongName);
    /// Empty tables of a node type. Tells the operator of an unknown type.
    bool SetWpDataFromNodeType(const QString& typeLongName);
    /// A stored connection with its values.
    bool SetParentConData(const QString& conName, bool clearFirst);
    bool SetConDataFromNode(const TreeEntries& tree, TreeEntries::Index entry);
    /// A stored node with its values.
    bool SetNodeDataFromNodeName(const QString& nodeName);
    bool SetNodeDataFromNode(const TreeEntries& tree, TreeEntries::Index entry);
    /// Node type tables and NodeTypeName on the module's ConObject, whatever instance this is.
    static bool SetNodeTypeData(const QString& typeLongName);
    bool SetConDataToUnknownCon();
    /// Reduced connection part of a stored connection. False: `target` as it was.
    bool GetParentWithoutDefaults(const QString& conName, QString& target);
    /// Reduced node part of a stored node; always True. A load failure is told in an error box.
    bool GetNodeWithoutDefaults(const QString& nodeName, QString& target);

    // Target strings (ConDataTargets.cpp) -------------------------------------------------------------------

    /// Full form over ConWpCount waypoints, checked, into TargetString. False: TargetString is empty.
    bool SetTargetString(bool nodeTarget);
    /// The variant for bus discovery.
    bool SetTargetStringForBusScanning();
    /// Reduced connection part; no check.
    void SetTargetWithoutDefaults(QString& target) const;
    /// Reduced node part over NodeWpCount waypoints; no check.
    void SetNodeTargetWithoutDefaults(QString& target) const;

private:
    void CopyWaypoints(const ConData& source, bool includeSavedValues);
    /// Over all used rows of the connection part.
    void CopyColumn(int from, int to);

    /// Stores the text as the database writes it. False: refused, or the database cannot be asked.
    bool CheckTarget(const QString& target, int flag);

    /// The waypoints of ConTypeID, or of the stored target where the type is unknown; sets ConWpCount.
    bool LoadConTypeTables();
    bool LoadNodeTypeTables();
    bool LoadWaypointTables(const PairTable& waypoints, int count);
    bool LoadWaypoint(int waypoint);
    bool OverlayValues(const QString& target);
    bool TakeConType(const QString& target);
    /// The node of NodeName.
    bool LoadStoredNode();

    struct Waypoint
    {
        QString name;
        QString longName;
        QString mandatory;
        int id = 0;
        WpData table;
    };
    [[nodiscard]] Waypoint& At(int waypoint);
    [[nodiscard]] const Waypoint& At(int waypoint) const;

    std::array<Waypoint, MaxWaypoints> m_waypoints;
};
