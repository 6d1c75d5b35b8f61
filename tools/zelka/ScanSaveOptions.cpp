#include "tools/zelka/ScanSaveOptions.h"

#include "model/TextHelpers.h"
#include "scan/network/SaveList.h"
#include "tools/zelka/CommandError.h"

#include <algorithm>

namespace {

constexpr const char* Address = "address";
constexpr const char* Identification = "id";
constexpr const char* Type = "type";

constexpr const char* Fail = "fail";
constexpr const char* Skip = "skip";
constexpr const char* Replace = "replace";

} // namespace

void ScanSaveOptions::Declare(CLI::App& scan)
{
    scan.add_flag("--save", m_save,
                  "When the scan has come to its end, save the nodes under the connection, each with the "
                  "--retries and --time-out of the scan; nodes that are known stay as they are");
    scan.add_flag("--dry-run", m_dryRun, "Tell what --save would do, and save nothing");
    scan.add_option("--prefix", m_prefix,
                    "Name nodes by this text, a comma and the parts of --name-from; without both options "
                    "the identification is the name")
        ->type_name("TEXT");
    scan.add_option("--name-from", m_nameFrom,
                    "Parts of the names, separated by blanks and always in this order (default: all three); "
                    "without a prefix no comma stands before them")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::IsMember({Address, Identification, Type}))
        ->option_text("address,id,type");
    scan.add_option("--on-conflict", m_onConflict,
                    "What to do when names are not free or not allowed: fail, save nothing (default); skip, "
                    "save the others; replace, put them in the place of the nodes that have the names, with "
                    "the manager of these, and skip what cannot be replaced")
        ->check(CLI::IsMember({Fail, Skip, Replace}))
        ->option_text("fail|skip|replace");
}

void ScanSaveOptions::Check() const
{
    if (Wanted())
        return;
    const auto require = [](bool given, const QString& option) {
        if (given)
            throw CommandError(ExitCode::Usage, QStringLiteral("%1 needs --save or --dry-run.").arg(option));
    };
    require(m_prefix.has_value(), QStringLiteral("--prefix"));
    require(!m_nameFrom.empty(), QStringLiteral("--name-from"));
    require(!m_onConflict.empty(), QStringLiteral("--on-conflict"));
}

ScanSaveOptions::Conflict ScanSaveOptions::OnConflict() const
{
    if (m_onConflict == Replace)
        return Conflict::Replace;
    return m_onConflict == Skip ? Conflict::Skip : Conflict::Fail;
}

bool ScanSaveOptions::NamesBy(const char* part) const
{
    return m_nameFrom.empty() || std::find(m_nameFrom.begin(), m_nameFrom.end(), part) != m_nameFrom.end();
}

QString ScanSaveOptions::NameOf(const ScanSaveRow& row) const
{
    if (!m_prefix && m_nameFrom.empty())
        return row.name;
    const QString prefix = Trim(QString::fromStdString(m_prefix.value_or(std::string())));
    const QString name =
        GenerateNodeName({prefix, NamesBy(Address), NamesBy(Identification), NamesBy(Type)}, row);
    // Behind a prefix the comma separates; alone it would only surprise.
    return prefix.isEmpty() && name.startsWith(u',') ? Trim(name.mid(1)) : name;
}
