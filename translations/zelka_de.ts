<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccessibleTreeItem</name>
    <message>
        <source>level %1, entry %2 of %3</source>
        <translation>Ebene %1, Eintrag %2 von %3</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
</context>
<context>
    <name>BrowserControl</name>
    <message>
        <source>Zelka Connection Browser</source>
        <translation>Zelka Connection Browser</translation>
    </message>
    <message>
        <source>Database or direct target</source>
        <translation>Datenbank oder direktes Ziel</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>Connection type picture</source>
        <translation>Bild des Verbindungstyps</translation>
    </message>
    <message>
        <source>Connections</source>
        <translation>Verbindungen</translation>
    </message>
    <message>
        <source>Show the connections, and below them their waypoints or nodes</source>
        <translation>Die Verbindungen zeigen, darunter ihre Wegpunkte oder Knoten</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>Knoten</translation>
    </message>
    <message>
        <source>Show all nodes</source>
        <translation>Alle Knoten zeigen</translation>
    </message>
    <message>
        <source>As of when the trees are, while the database cannot be read</source>
        <translation>Von wann die Bäume sind, solange die Datenbank nicht gelesen werden kann</translation>
    </message>
    <message>
        <source>View Nodes</source>
        <translation>Knoten zeigen</translation>
    </message>
    <message>
        <source>Show nodes instead of waypoints below the connections</source>
        <translation>Unter den Verbindungen Knoten statt Wegpunkten zeigen</translation>
    </message>
    <message>
        <source>Find in tree</source>
        <translation>Im Baum suchen</translation>
    </message>
    <message>
        <source>&amp;Add ...</source>
        <translation>&amp;Hinzufügen ...</translation>
    </message>
    <message>
        <source>Add a connection or a node</source>
        <translation>Eine Verbindung oder einen Knoten hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Properties..</source>
        <translation>&amp;Eigenschaften..</translation>
    </message>
    <message>
        <source>Show and change the selected connection or node</source>
        <translation>Die ausgewählte Verbindung oder den ausgewählten Knoten zeigen und ändern</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>Entfe&amp;rnen</translation>
    </message>
    <message>
        <source>Remove the selected connection or node from the database</source>
        <translation>Die ausgewählte Verbindung oder den ausgewählten Knoten aus der Datenbank entfernen</translation>
    </message>
    <message>
        <source>&amp;Scan...</source>
        <translation>&amp;Scannen...</translation>
    </message>
    <message>
        <source>Scan the selected connection for nodes</source>
        <translation>Über die ausgewählte Verbindung nach Knoten scannen</translation>
    </message>
    <message>
        <source>&amp;Manage</source>
        <translation>&amp;Verwalten</translation>
    </message>
    <message>
        <source>Start the manager of the selected node</source>
        <translation>Den Manager des ausgewählten Knotens starten</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>A&amp;ktualisieren</translation>
    </message>
    <message>
        <source>Show what other applications have changed</source>
        <translation>Zeigen, was andere Anwendungen geändert haben</translation>
    </message>
    <message>
        <source>&amp;Load More</source>
        <translation>Mehr &amp;laden</translation>
    </message>
    <message>
        <source>Load the next nodes from the database</source>
        <translation>Die nächsten Knoten aus der Datenbank laden</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>H&amp;ilfe</translation>
    </message>
    <message>
        <source>Show help about this tab</source>
        <translation>Hilfe zu dieser Seite zeigen</translation>
    </message>
    <message>
        <source>Help about the Database tab</source>
        <translation>Hilfe zur Seite „Datenbank“</translation>
    </message>
    <message>
        <source>Direct</source>
        <translation>Direkt</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Connection over which the node is reached</source>
        <translation>Verbindung, über die der Knoten erreicht wird</translation>
    </message>
    <message>
        <source>Connection name</source>
        <translation>Verbindungsname</translation>
    </message>
    <message>
        <source>Pr&amp;operties...</source>
        <translation>Ei&amp;genschaften...</translation>
    </message>
    <message>
        <source>Define the connection</source>
        <translation>Die Verbindung festlegen</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Typ:</translation>
    </message>
    <message>
        <source>Connection Type Disabled</source>
        <translation>Verbindungstyp gesperrt</translation>
    </message>
    <message>
        <source>Type of the connection</source>
        <translation>Typ der Verbindung</translation>
    </message>
    <message>
        <source>Connection type</source>
        <translation>Verbindungstyp</translation>
    </message>
    <message>
        <source>H&amp;elp</source>
        <translation>Hil&amp;fe</translation>
    </message>
    <message>
        <source>Help about the Direct tab</source>
        <translation>Hilfe zur Seite „Direkt“</translation>
    </message>
    <message>
        <source>Node Parameters</source>
        <translation>Knotenparameter</translation>
    </message>
    <message>
        <source>Node parameters</source>
        <translation>Knotenparameter</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adresse:</translation>
    </message>
    <message>
        <source>Address of the node on the bus</source>
        <translation>Adresse des Knotens am Bus</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>FE ID:</source>
        <translation>FE-ID:</translation>
    </message>
    <message>
        <source>Identification of the front end</source>
        <translation>Kennung des Front-Ends</translation>
    </message>
    <message>
        <source>FE ID</source>
        <translation>FE-ID</translation>
    </message>
    <message>
        <source>Retries:</source>
        <translation>Wiederholungen:</translation>
    </message>
    <message>
        <source>How often an unanswered request is repeated</source>
        <translation>Wie oft eine unbeantwortete Anfrage wiederholt wird</translation>
    </message>
    <message>
        <source>Retries</source>
        <translation>Wiederholungen</translation>
    </message>
    <message>
        <source>FE Channel:</source>
        <translation>FE-Kanal:</translation>
    </message>
    <message>
        <source>Channel of the front end</source>
        <translation>Kanal des Front-Ends</translation>
    </message>
    <message>
        <source>FE Channel</source>
        <translation>FE-Kanal</translation>
    </message>
    <message>
        <source>Time-out:</source>
        <translation>Zeitlimit:</translation>
    </message>
    <message>
        <source>Milliseconds that a request waits for its answer</source>
        <translation>Millisekunden, die eine Anfrage auf ihre Antwort wartet</translation>
    </message>
    <message>
        <source>Time-out</source>
        <translation>Zeitlimit</translation>
    </message>
    <message>
        <source>S&amp;can...</source>
        <translation>S&amp;cannen...</translation>
    </message>
    <message>
        <source>Scan the connection for nodes</source>
        <translation>Über die Verbindung nach Knoten scannen</translation>
    </message>
    <message>
        <source>User Name:</source>
        <translation>Benutzername:</translation>
    </message>
    <message>
        <source>Name under which to log in</source>
        <translation>Name, unter dem die Anmeldung erfolgt</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Benutzername</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Kennwort:</translation>
    </message>
    <message>
        <source>Password of that user</source>
        <translation>Kennwort dieses Benutzers</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Kennwort</translation>
    </message>
    <message>
        <source>Path:</source>
        <translation>Pfad:</translation>
    </message>
    <message>
        <source>Path to the network element</source>
        <translation>Pfad zum Netzelement</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Rechner:</translation>
    </message>
    <message>
        <source>Host name or address of the node</source>
        <translation>Rechnername oder Adresse des Knotens</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Rechner</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>UDP port of the node</source>
        <translation>UDP-Port des Knotens</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Community:</source>
        <translation>Community:</translation>
    </message>
    <message>
        <source>Community under which the node answers</source>
        <translation>Community, unter der der Knoten antwortet</translation>
    </message>
    <message>
        <source>Community</source>
        <translation>Community</translation>
    </message>
    <message>
        <source>Section:</source>
        <translation>Abschnitt:</translation>
    </message>
    <message>
        <source>Section of the station</source>
        <translation>Abschnitt der Station</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Abschnitt</translation>
    </message>
    <message>
        <source>Station:</source>
        <translation>Station:</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Target String</source>
        <translation>Zielangabe</translation>
    </message>
    <message>
        <source>Target:</source>
        <translation>Ziel:</translation>
    </message>
    <message>
        <source>Target string of the selected connection or node; it can be edited</source>
        <translation>Zielangabe der ausgewählten Verbindung oder des ausgewählten Knotens; sie kann geändert werden</translation>
    </message>
    <message>
        <source>Target string</source>
        <translation>Zielangabe</translation>
    </message>
    <message>
        <source>Failure to get connection data from database.</source>
        <translation>Die Verbindungsdaten konnten nicht aus der Datenbank gelesen werden.</translation>
    </message>
    <message>
        <source>Failure to get node data from database.</source>
        <translation>Die Knotendaten konnten nicht aus der Datenbank gelesen werden.</translation>
    </message>
    <message>
        <source>Do you want to remove Node %1 from database ?</source>
        <translation>Möchten Sie den Knoten %1 aus der Datenbank entfernen?</translation>
    </message>
    <message>
        <source>Failure in removing Node %1.</source>
        <translation>Der Knoten %1 konnte nicht entfernt werden.</translation>
    </message>
    <message>
        <source>Do you want to remove Connection %1 and all its nodes from database ?</source>
        <translation>Möchten Sie die Verbindung %1 und alle ihre Knoten aus der Datenbank entfernen?</translation>
    </message>
    <message>
        <source>Failure in removing Connection %1.</source>
        <translation>Die Verbindung %1 konnte nicht entfernt werden.</translation>
    </message>
    <message>
        <source>Nothing is selected, select a node from the tree.</source>
        <translation>Es ist nichts ausgewählt; wählen Sie einen Knoten im Baum aus.</translation>
    </message>
    <message>
        <source>Only nodes can be used to launch a manager, select a node from the tree.</source>
        <translation>Nur für Knoten kann ein Manager gestartet werden; wählen Sie einen Knoten im Baum aus.</translation>
    </message>
    <message>
        <source>No database, access to database tab is denied.</source>
        <translation>Keine Datenbank, die Seite „Datenbank“ ist gesperrt.</translation>
    </message>
    <message>
        <source>Connections and nodes must be reloaded, because of changes made by another application. Automatic reload follows.</source>
        <translation>Verbindungen und Knoten müssen neu geladen werden, weil eine andere Anwendung Änderungen vorgenommen hat. Sie werden nun automatisch neu geladen.</translation>
    </message>
    <message>
        <source>ConvertItemListToArray Error</source>
        <translation>Fehler in ConvertItemListToArray</translation>
    </message>
    <message>
        <source>Journal table access failure.</source>
        <translation>Auf die Journaltabelle konnte nicht zugegriffen werden.</translation>
    </message>
    <message>
        <source>First select a connection in the connection tree.</source>
        <translation>Wählen Sie zuerst eine Verbindung im Verbindungsbaum aus.</translation>
    </message>
    <message>
        <source>First select a connection in the tree.</source>
        <translation>Wählen Sie zuerst eine Verbindung im Baum aus.</translation>
    </message>
    <message>
        <source>Connection name not found.</source>
        <translation>Der Verbindungsname wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>%1 is not in the database any more.</source>
        <translation>%1 steht nicht mehr in der Datenbank.</translation>
    </message>
</context>
<context>
    <name>ConPropPanel</name>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Connection Name</source>
        <translation>Verbindungsname</translation>
    </message>
    <message>
        <source>Name of the connection; Esc brings the former name back</source>
        <translation>Name der Verbindung; Esc holt den früheren Namen zurück</translation>
    </message>
    <message>
        <source>Connection type picture</source>
        <translation>Bild des Verbindungstyps</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Typ:</translation>
    </message>
    <message>
        <source>Type of the connection; another type starts with empty parameters</source>
        <translation>Typ der Verbindung; ein anderer Typ beginnt mit leeren Parametern</translation>
    </message>
    <message>
        <source>Connection Type</source>
        <translation>Verbindungstyp</translation>
    </message>
    <message>
        <source>Definition:</source>
        <translation>Definition:</translation>
    </message>
    <message>
        <source>Connection Definition</source>
        <translation>Verbindungsdefinition</translation>
    </message>
    <message>
        <source>Show Parameters</source>
        <translation>Parameter zeigen</translation>
    </message>
    <message>
        <source>List the parameters of each part of the connection too</source>
        <translation>Auch die Parameter jedes Teils der Verbindung auflisten</translation>
    </message>
    <message>
        <source>&amp;Properties</source>
        <translation>&amp;Eigenschaften</translation>
    </message>
    <message>
        <source>Change the parameters of the selected part of the connection</source>
        <translation>Die Parameter des ausgewählten Teils der Verbindung ändern</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
</context>
<context>
    <name>ConsolePanel</name>
    <message>
        <source>Console</source>
        <translation>Konsole</translation>
    </message>
    <message>
        <source>Re&amp;quest:</source>
        <translation>A&amp;nfrage:</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Anfrage</translation>
    </message>
    <message>
        <source>What is sent to the target; Enter sends it</source>
        <translation>Was an das Ziel gesendet wird; die Eingabetaste sendet es</translation>
    </message>
    <message>
        <source>Se&amp;nd</source>
        <translation>A&amp;bsenden</translation>
    </message>
    <message>
        <source>Open the target, if it is not open, and send it the request</source>
        <translation>Das Ziel öffnen, wenn es nicht offen ist, und ihm die Anfrage senden</translation>
    </message>
    <message>
        <source>State of the connection</source>
        <translation>Zustand der Verbindung</translation>
    </message>
    <message>
        <source>&amp;Disconnect</source>
        <translation>&amp;Trennen</translation>
    </message>
    <message>
        <source>Close the connection, or give up waiting for the reply</source>
        <translation>Die Verbindung schließen oder nicht länger auf die Antwort warten</translation>
    </message>
    <message>
        <source>Log of the console</source>
        <translation>Protokoll der Konsole</translation>
    </message>
    <message>
        <source>What was sent (&gt;), what came (&lt;) and what failed (!)</source>
        <translation>Was gesendet wurde (&gt;), was kam (&lt;) und was fehlschlug (!)</translation>
    </message>
    <message>
        <source>Copy Te&amp;xt</source>
        <translation>Text k&amp;opieren</translation>
    </message>
    <message>
        <source>Copy the log</source>
        <translation>Das Protokoll kopieren</translation>
    </message>
    <message>
        <source>Copy the log to the clipboard</source>
        <translation>Das Protokoll in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Clear &amp;Text</source>
        <translation>Te&amp;xt löschen</translation>
    </message>
    <message>
        <source>Clear the log</source>
        <translation>Das Protokoll leeren</translation>
    </message>
    <message>
        <source>Empty the log</source>
        <translation>Das Protokoll leeren</translation>
    </message>
    <message>
        <source>connected to %1</source>
        <translation>verbunden mit %1</translation>
    </message>
    <message>
        <source>disconnected</source>
        <translation>getrennt</translation>
    </message>
    <message>
        <source>Connecting to %1 ...</source>
        <translation>Verbindung mit %1 wird hergestellt ...</translation>
    </message>
    <message>
        <source>Waiting for the reply of %1 ...</source>
        <translation>Warten auf die Antwort von %1 ...</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Verbunden mit %1.</translation>
    </message>
    <message>
        <source>Connected to %1. The next request goes to the new target.</source>
        <translation>Verbunden mit %1. Die nächste Anfrage geht an das neue Ziel.</translation>
    </message>
    <message>
        <source>Not connected. There is no target to send a request to.</source>
        <translation>Nicht verbunden. Es gibt kein Ziel, an das eine Anfrage gehen könnte.</translation>
    </message>
    <message>
        <source>Not connected. A request opens the target.</source>
        <translation>Nicht verbunden. Eine Anfrage öffnet das Ziel.</translation>
    </message>
</context>
<context>
    <name>DatabaseClass</name>
    <message>
        <source>GetNMAInfoDb,failure to commit database operations.</source>
        <translation>GetNMAInfoDb: Die Datenbankvorgänge konnten nicht abgeschlossen werden.</translation>
    </message>
    <message>
        <source>There is no database component.</source>
        <translation>Es gibt keine Datenbankkomponente.</translation>
    </message>
    <message>
        <source>Access to HVX Database is denied, another application might be using it.</source>
        <translation>Der Zugriff auf die HVX-Datenbank wurde verweigert; möglicherweise wird sie von einer anderen Anwendung benutzt.</translation>
    </message>
    <message>
        <source>Failure to commit HVX Database operations.</source>
        <translation>Die Vorgänge in der HVX-Datenbank konnten nicht abgeschlossen werden.</translation>
    </message>
    <message>
        <source>In correct HVX Database format, at least HVX Database version 4.2 is required.</source>
        <translation>Falsches Format der HVX-Datenbank; es ist mindestens die Version 4.2 der HVX-Datenbank erforderlich.</translation>
    </message>
    <message>
        <source>Failure in a database operation and database also failed to roll back its changes. Warning, database may be corrupted.</source>
        <translation>Ein Datenbankvorgang ist fehlgeschlagen, und die Datenbank konnte ihre Änderungen nicht zurücknehmen. Achtung, die Datenbank ist möglicherweise beschädigt.</translation>
    </message>
    <message>
        <source>Unknown error in access to database.</source>
        <translation>Unbekannter Fehler beim Zugriff auf die Datenbank.</translation>
    </message>
    <message>
        <source>Failure in database operation. All modifications rolled back successfully.</source>
        <translation>Ein Datenbankvorgang ist fehlgeschlagen. Alle Änderungen wurden zurückgenommen.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, another application has either locked the database or ODBC setting DSN=DBS32 does not exist.</source>
        <translation>Die HVX-Datenbank kann nicht geöffnet werden; entweder hat eine andere Anwendung die Datenbank gesperrt oder die ODBC-Einstellung DSN=DBS32 fehlt.</translation>
    </message>
</context>
<context>
    <name>DefinitionListView</name>
    <message>
        <source>M: mandatory, D: default value in use</source>
        <translation>M: Mussangabe, D: Vorgabewert in Gebrauch</translation>
    </message>
</context>
<context>
    <name>FoundEntries</name>
    <message>
        <source>Not loaded yet</source>
        <translation>Noch nicht geladen</translation>
    </message>
    <message>
        <source>There are more than %1. Search for a longer text.</source>
        <translation>Es gibt mehr als %1. Suchen Sie nach einem längeren Text.</translation>
    </message>
</context>
<context>
    <name>HelpBrowser</name>
    <message>
        <source>&lt;h1&gt;Not found&lt;/h1&gt;&lt;p&gt;The help has no page &quot;%1&quot;.&lt;/p&gt;</source>
        <translation>&lt;h1&gt;Nicht gefunden&lt;/h1&gt;&lt;p&gt;Die Hilfe hat keine Seite „%1“.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>HelpFindBar</name>
    <message>
        <source>Find in &amp;page:</source>
        <translation>Auf dieser S&amp;eite suchen:</translation>
    </message>
    <message>
        <source>Enter goes on, Shift+Enter goes back, Escape closes</source>
        <translation>Eingabetaste sucht weiter, Umschalt+Eingabetaste sucht zurück, Esc schließt</translation>
    </message>
    <message>
        <source>P&amp;revious</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Find the text before (Shift+F3)</source>
        <translation>Den Text davor suchen (Umschalt+F3)</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>Find the text again (F3)</source>
        <translation>Den Text weitersuchen (F3)</translation>
    </message>
    <message>
        <source>Outcome of finding in the page</source>
        <translation>Ergebnis der Suche auf der Seite</translation>
    </message>
    <message>
        <source>Not in this page</source>
        <translation>Nicht auf dieser Seite</translation>
    </message>
</context>
<context>
    <name>HelpSearch</name>
    <message>
        <source>Words to search for</source>
        <translation>Gesuchte Wörter</translation>
    </message>
    <message>
        <source>Enter searches all pages of the help</source>
        <translation>Die Eingabetaste durchsucht alle Seiten der Hilfe</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message>
        <source>Search all pages of the help</source>
        <translation>Alle Seiten der Hilfe durchsuchen</translation>
    </message>
    <message>
        <source>Outcome of the search</source>
        <translation>Ergebnis der Suche</translation>
    </message>
    <message>
        <source>Pages found</source>
        <translation>Gefundene Seiten</translation>
    </message>
    <message>
        <source>Enter shows the page</source>
        <translation>Die Eingabetaste zeigt die Seite</translation>
    </message>
    <message>
        <source>Searching ...</source>
        <translation>Suche läuft ...</translation>
    </message>
    <message>
        <source>No page holds &quot;%1&quot;.</source>
        <translation>Keine Seite enthält „%1“.</translation>
    </message>
    <message>
        <source>Pages found: %1</source>
        <translation>Gefundene Seiten: %1</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Ways into the help</source>
        <translation>Wege in die Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>Inde&amp;x</source>
        <translation>Inde&amp;x</translation>
    </message>
    <message>
        <source>Keyword</source>
        <translation>Stichwort</translation>
    </message>
    <message>
        <source>Shows the keywords that hold this text; Enter shows the page of the first</source>
        <translation>Zeigt die Stichwörter, die diesen Text enthalten; die Eingabetaste zeigt die Seite des ersten</translation>
    </message>
    <message>
        <source>Se&amp;arch</source>
        <translation>S&amp;uche</translation>
    </message>
    <message>
        <source>Help page</source>
        <translation>Hilfeseite</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Show the page before (Alt+Left)</source>
        <translation>Die Seite davor zeigen (Alt+Links)</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Show the page that you came back from (Alt+Right)</source>
        <translation>Die Seite zeigen, von der Sie zurückgekehrt sind (Alt+Rechts)</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Show the first page (Alt+Home)</source>
        <translation>Die erste Seite zeigen (Alt+Pos1)</translation>
    </message>
    <message>
        <source>Find in Page</source>
        <translation>Auf der Seite suchen</translation>
    </message>
    <message>
        <source>Find text in this page (Ctrl+F)</source>
        <translation>Text auf dieser Seite suchen (Strg+F)</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Größer</translation>
    </message>
    <message>
        <source>Show the text larger (Ctrl++)</source>
        <translation>Den Text größer zeigen (Strg++)</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Kleiner</translation>
    </message>
    <message>
        <source>Show the text smaller (Ctrl+-)</source>
        <translation>Den Text kleiner zeigen (Strg+-)</translation>
    </message>
    <message>
        <source>Normal Size</source>
        <translation>Normale Größe</translation>
    </message>
    <message>
        <source>Show the text as large as that of the windows (Ctrl+0)</source>
        <translation>Den Text so groß wie in den Fenstern zeigen (Strg+0)</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Keywords</source>
        <translation>Stichwörter</translation>
    </message>
    <message>
        <source>%1 is outside of this help and is not opened.</source>
        <translation>%1 liegt außerhalb dieser Hilfe und wird nicht geöffnet.</translation>
    </message>
    <message>
        <source>%1 - Help</source>
        <translation>%1 - Hilfe</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>The language changes when the workstation is started again.</source>
        <translation>Die Sprache wechselt beim nächsten Start der Workstation.</translation>
    </message>
</context>
<context>
    <name>NodeDialog</name>
    <message>
        <source>&apos;New Node&apos; cannot be used as a node name, give a new name.</source>
        <translation>„New Node“ kann nicht als Knotenname verwendet werden; geben Sie einen anderen Namen ein.</translation>
    </message>
</context>
<context>
    <name>NodeManagerWindow</name>
    <message>
        <source>Zelka Node Manager</source>
        <translation>Zelka Node Manager</translation>
    </message>
    <message>
        <source>&amp;Node:</source>
        <translation>&amp;Knoten:</translation>
    </message>
    <message>
        <source>Node that this manager operates</source>
        <translation>Knoten, den dieser Manager bedient</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>Knoten</translation>
    </message>
    <message>
        <source>&amp;Device:</source>
        <translation>&amp;Gerät:</translation>
    </message>
    <message>
        <source>Device that the manager was told</source>
        <translation>Gerät, das dem Manager genannt wurde</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>&amp;Arguments:</source>
        <translation>&amp;Argumente:</translation>
    </message>
    <message>
        <source>All arguments of the program, each on a line of its own</source>
        <translation>Alle Argumente des Programms, jedes in einer eigenen Zeile</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>Ko&amp;pieren</translation>
    </message>
    <message>
        <source>Copy node, device and arguments to the clipboard</source>
        <translation>Knoten, Gerät und Argumente in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close the manager</source>
        <translation>Den Manager schließen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>NodePages</name>
    <message>
        <source>Node &amp;Definition:</source>
        <translation>Knoten&amp;definition:</translation>
    </message>
    <message>
        <source>Parts of the node; the parameters of the selected one are below</source>
        <translation>Teile des Knotens; die Parameter des ausgewählten Teils stehen darunter</translation>
    </message>
    <message>
        <source>Node definition</source>
        <translation>Knotendefinition</translation>
    </message>
    <message>
        <source>Parameters:</source>
        <translation>Parameter:</translation>
    </message>
    <message>
        <source>Type or double-click in the Value column to change a parameter</source>
        <translation>Zum Ändern eines Parameters in der Spalte „Wert“ tippen oder doppelklicken</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Parameter value</source>
        <translation>Parameterwert</translation>
    </message>
    <message>
        <source>Parameter value from a list</source>
        <translation>Parameterwert aus einer Liste</translation>
    </message>
    <message>
        <source>Step the parameter value</source>
        <translation>Den Parameterwert schrittweise ändern</translation>
    </message>
</context>
<context>
    <name>ProgressForm</name>
    <message>
        <source>Do you want to interrupt database loading ?</source>
        <translation>Möchten Sie das Laden aus der Datenbank unterbrechen?</translation>
    </message>
    <message>
        <source>Interrupt Loading</source>
        <translation>Laden unterbrechen</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>connections not loaded</source>
        <translation>Verbindungen nicht geladen</translation>
    </message>
    <message>
        <source>%1 connections</source>
        <translation>%1 Verbindungen</translation>
    </message>
    <message>
        <source>%1 nodes</source>
        <translation>%1 Knoten</translation>
    </message>
    <message>
        <source>%1 of %2 nodes</source>
        <translation>%1 von %2 Knoten</translation>
    </message>
    <message>
        <source>Loaded: %1, %2</source>
        <translation>Geladen: %1, %2</translation>
    </message>
    <message>
        <source>Rights: scan, change</source>
        <translation>Rechte: scannen, ändern</translation>
    </message>
    <message>
        <source>Rights: scan</source>
        <translation>Rechte: scannen</translation>
    </message>
    <message>
        <source>Rights: change</source>
        <translation>Rechte: ändern</translation>
    </message>
    <message>
        <source>Rights: read only</source>
        <translation>Rechte: nur lesen</translation>
    </message>
    <message>
        <source>Database in use</source>
        <translation>Benutzte Datenbank</translation>
    </message>
    <message>
        <source>When the trees were last known to be what the database holds</source>
        <translation>Wann die Bäume zuletzt nachweislich den Stand der Datenbank zeigten</translation>
    </message>
    <message>
        <source>How many nodes and connections are loaded</source>
        <translation>Wie viele Knoten und Verbindungen geladen sind</translation>
    </message>
    <message>
        <source>What you may do beside looking</source>
        <translation>Was Sie außer Ansehen tun dürfen</translation>
    </message>
    <message>
        <source>less than a minute ago</source>
        <translation>vor weniger als einer Minute</translation>
    </message>
    <message>
        <source>%1 min ago</source>
        <translation>vor %1 min</translation>
    </message>
    <message>
        <source>%1 h ago</source>
        <translation>vor %1 h</translation>
    </message>
    <message>
        <source>%1 days ago</source>
        <translation>vor %1 Tag(en)</translation>
    </message>
    <message>
        <source>Cannot be read; as of %1</source>
        <translation>Nicht lesbar; Stand: %1</translation>
    </message>
    <message>
        <source>As of %1</source>
        <translation>Stand: %1</translation>
    </message>
</context>
<context>
    <name>T4ZelkaBrowser</name>
    <message>
        <source>heippa</source>
        <translation>heippa</translation>
    </message>
</context>
<context>
    <name>TargetPanel</name>
    <message>
        <source>Target for the Host</source>
        <translation>Ziel für das Wirtsprogramm</translation>
    </message>
    <message>
        <source>Target for the host</source>
        <translation>Ziel für das Wirtsprogramm</translation>
    </message>
    <message>
        <source>The target that the host got when it last asked</source>
        <translation>Das Ziel, das das Wirtsprogramm bei der letzten Abfrage bekam</translation>
    </message>
    <message>
        <source>Read Tar&amp;get</source>
        <translation>&amp;Ziel lesen</translation>
    </message>
    <message>
        <source>Ask the browser for its target, as a host does</source>
        <translation>Den Browser nach seinem Ziel fragen, wie es ein Wirtsprogramm tut</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Ko&amp;pieren</translation>
    </message>
    <message>
        <source>Copy the target to the clipboard</source>
        <translation>Das Ziel in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Kind of the answer</source>
        <translation>Art der Antwort</translation>
    </message>
    <message>
        <source>Select a connection or a node, or type a target, then read it.</source>
        <translation>Wählen Sie eine Verbindung oder einen Knoten aus oder tippen Sie ein Ziel, dann lesen Sie es.</translation>
    </message>
    <message>
        <source>This is what the host gets.</source>
        <translation>Das bekommt das Wirtsprogramm.</translation>
    </message>
    <message>
        <source>There is no valid target. Select a connection or a node, or correct the target.</source>
        <translation>Es gibt kein gültiges Ziel. Wählen Sie eine Verbindung oder einen Knoten aus oder berichtigen Sie das Ziel.</translation>
    </message>
    <message>
        <source>The target could not be checked.</source>
        <translation>Das Ziel konnte nicht geprüft werden.</translation>
    </message>
</context>
<context>
    <name>UpDown</name>
    <message>
        <source>Up</source>
        <translation>Aufwärts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Abwärts</translation>
    </message>
</context>
<context>
    <name>Words</name>
    <message>
        <source>(Major code = %1, Minor code = %2)</source>
        <translation>(Hauptcode = %1, Nebencode = %2)</translation>
    </message>
    <message>
        <source>Component %1 cannot be created.</source>
        <translation>Die Komponente %1 kann nicht erzeugt werden.</translation>
    </message>
    <message>
        <source>Component %1 is not registered.</source>
        <translation>Die Komponente %1 ist nicht registriert.</translation>
    </message>
    <message>
        <source>%1 - Error</source>
        <translation>%1 - Fehler</translation>
    </message>
    <message>
        <source>Error: Unknown node type.</source>
        <translation>Fehler: Unbekannter Knotentyp.</translation>
    </message>
    <message>
        <source>Unknown parameter:%1</source>
        <translation>Unbekannter Parameter: %1</translation>
    </message>
    <message>
        <source>Failure to get node data from database.</source>
        <translation>Die Knotendaten konnten nicht aus der Datenbank gelesen werden.</translation>
    </message>
    <message>
        <source>Mandatory and mutually exclusive parameters are set incorrectly (check parameters with bold and italic font).</source>
        <translation>Mussparameter, die einander ausschließen, sind falsch gesetzt (prüfen Sie die Parameter in fetter und kursiver Schrift).</translation>
    </message>
    <message>
        <source>Mandatory parameter without value (check parameter names with bold font).</source>
        <translation>Mussparameter ohne Wert (prüfen Sie die Parameternamen in fetter Schrift).</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>%1-waypoint parameters:</source>
        <translation>Parameter des Wegpunkts %1:</translation>
    </message>
    <message>
        <source>Connection Definition</source>
        <translation>Verbindungsdefinition</translation>
    </message>
    <message>
        <source>M/D</source>
        <translation>M/D</translation>
    </message>
    <message>
        <source>Connection %1 already exists. Give a new name.</source>
        <translation>Die Verbindung %1 gibt es bereits. Geben Sie einen anderen Namen ein.</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Connection %1 exists in database. Do you want to replace it ?</source>
        <translation>Die Verbindung %1 steht in der Datenbank. Möchten Sie sie ersetzen?</translation>
    </message>
    <message>
        <source>Replace Connection</source>
        <translation>Verbindung ersetzen</translation>
    </message>
    <message>
        <source>Node name %1 already exists in the database. No saving, because connections and nodes cannot share the same name.</source>
        <translation>Den Knotennamen %1 gibt es bereits in der Datenbank. Es wird nicht gespeichert, weil Verbindungen und Knoten nicht denselben Namen haben können.</translation>
    </message>
    <message>
        <source>Save is prevented, because another application has changed this connection. Close dialog and try again.</source>
        <translation>Das Speichern ist nicht möglich, weil eine andere Anwendung diese Verbindung geändert hat. Schließen Sie das Dialogfeld und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because upgrading it to latest format failed.</source>
        <translation>Die HVX-Datenbank kann nicht geöffnet werden, weil die Umstellung auf das neueste Format fehlgeschlagen ist.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because the database file (Dbs.mdb) is missing or ODBC DSN DBS32 is not set to the database.</source>
        <translation>Die HVX-Datenbank kann nicht geöffnet werden, weil die Datenbankdatei (Dbs.mdb) fehlt oder die ODBC-DSN DBS32 nicht auf die Datenbank gesetzt ist.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because of CAM access error.</source>
        <translation>Die HVX-Datenbank kann wegen eines CAM-Zugriffsfehlers nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because the database file (Dbs.mdb) is in read-only mode.</source>
        <translation>Die HVX-Datenbank kann nicht geöffnet werden, weil die Datenbankdatei (Dbs.mdb) schreibgeschützt ist.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because the database file (Dbs.mdb) is missing one or more tables.</source>
        <translation>Die HVX-Datenbank kann nicht geöffnet werden, weil in der Datenbankdatei (Dbs.mdb) eine oder mehrere Tabellen fehlen.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because of unknown table problem in the database file (Dbs.mdb).</source>
        <translation>Die HVX-Datenbank kann wegen eines unbekannten Problems mit einer Tabelle der Datenbankdatei (Dbs.mdb) nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Database access is denied, because another application is using it.</source>
        <translation>Der Zugriff auf die Datenbank wurde verweigert, weil eine andere Anwendung sie benutzt.</translation>
    </message>
    <message>
        <source>Failure to commit database operations.</source>
        <translation>Die Datenbankvorgänge konnten nicht abgeschlossen werden.</translation>
    </message>
    <message>
        <source>Failure to roll back database changes. Warning, database may be corrupted.</source>
        <translation>Die Datenbankänderungen konnten nicht zurückgenommen werden. Achtung, die Datenbank ist möglicherweise beschädigt.</translation>
    </message>
    <message>
        <source>Database is in use by another application, do you want to try again ?</source>
        <translation>Die Datenbank wird von einer anderen Anwendung benutzt. Möchten Sie es noch einmal versuchen?</translation>
    </message>
    <message>
        <source>Database sharing problem</source>
        <translation>Problem mit der gemeinsamen Datenbank</translation>
    </message>
    <message>
        <source>Database search error.</source>
        <translation>Fehler bei der Suche in der Datenbank.</translation>
    </message>
    <message>
        <source>Error in connection database saving.</source>
        <translation>Fehler beim Speichern der Verbindung in der Datenbank.</translation>
    </message>
    <message>
        <source>Connection %1 is deleted from database by another application. Nodes cannot be saved without connection. Select another connection and scan again.</source>
        <translation>Die Verbindung %1 wurde von einer anderen Anwendung aus der Datenbank gelöscht. Ohne Verbindung können Knoten nicht gespeichert werden. Wählen Sie eine andere Verbindung aus und scannen Sie noch einmal.</translation>
    </message>
    <message>
        <source>Connection %1 is changed by another application. Nodes cannot be saved without connection. Select another connection and scan again.</source>
        <translation>Die Verbindung %1 wurde von einer anderen Anwendung geändert. Ohne Verbindung können Knoten nicht gespeichert werden. Wählen Sie eine andere Verbindung aus und scannen Sie noch einmal.</translation>
    </message>
    <message>
        <source>Connection %1 exists in database. Do you want to replace it?</source>
        <translation>Die Verbindung %1 steht in der Datenbank. Möchten Sie sie ersetzen?</translation>
    </message>
    <message>
        <source>Connection and node saving canceled.</source>
        <translation>Das Speichern der Verbindung und des Knotens wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Missing Device Name, manager cannot be launched.</source>
        <translation>Der Gerätename fehlt, der Manager kann nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Device Name %1 not found, manager cannot be launched.</source>
        <translation>Der Gerätename %1 wurde nicht gefunden, der Manager kann nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Manager Launch Error with Command Line:%1</source>
        <translation>Fehler beim Start des Managers mit der Befehlszeile: %1</translation>
    </message>
    <message>
        <source>Failure in removing Node %1.</source>
        <translation>Der Knoten %1 konnte nicht entfernt werden.</translation>
    </message>
    <message>
        <source>Give node name.</source>
        <translation>Geben Sie den Knotennamen ein.</translation>
    </message>
    <message>
        <source>T4 Node mandatory parameter without value (check parameter names with bold font).</source>
        <translation>Mussparameter des T4-Knotens ohne Wert (prüfen Sie die Parameternamen in fetter Schrift).</translation>
    </message>
    <message>
        <source>Node name %1 already exists in the database. No saving, because nodes and connections cannot share the same name.</source>
        <translation>Den Knotennamen %1 gibt es bereits in der Datenbank. Es wird nicht gespeichert, weil Knoten und Verbindungen nicht denselben Namen haben können.</translation>
    </message>
    <message>
        <source>Node %1 exists in database. Do you want to replace it ?</source>
        <translation>Der Knoten %1 steht in der Datenbank. Möchten Sie ihn ersetzen?</translation>
    </message>
    <message>
        <source>Replace Node</source>
        <translation>Knoten ersetzen</translation>
    </message>
    <message>
        <source>Save is prevented, because another application has changed this node. Close dialog and try again.</source>
        <translation>Das Speichern ist nicht möglich, weil eine andere Anwendung diesen Knoten geändert hat. Schließen Sie das Dialogfeld und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Manager index doesn&apos;t exist.</source>
        <translation>Der Managerindex ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>Database error, Node ID missing.</source>
        <translation>Datenbankfehler, die Knoten-ID fehlt.</translation>
    </message>
    <message>
        <source>No saving, because of an error in waypoint parameters or mandatory waypoint is missing all its parameters.</source>
        <translation>Es wird nicht gespeichert, weil Wegpunktparameter fehlerhaft sind oder einem notwendigen Wegpunkt alle Parameter fehlen.</translation>
    </message>
    <message>
        <source>Error with HVX component</source>
        <translation>Fehler in einer HVX-Komponente</translation>
    </message>
    <message>
        <source>Database error, Connection ID missing.</source>
        <translation>Datenbankfehler, die Verbindungs-ID fehlt.</translation>
    </message>
    <message>
        <source>Node %1 not found from database.</source>
        <translation>Der Knoten %1 wurde in der Datenbank nicht gefunden.</translation>
    </message>
    <message>
        <source>Failure in saving node %1 into database.</source>
        <translation>Der Knoten %1 konnte nicht in der Datenbank gespeichert werden.</translation>
    </message>
    <message>
        <source>Error: Connection name is empty.</source>
        <translation>Fehler: Der Verbindungsname ist leer.</translation>
    </message>
    <message>
        <source>Error: Database search error.</source>
        <translation>Fehler: Die Suche in der Datenbank ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Error: Connection name %1 alredy exists in database.</source>
        <translation>Fehler: Den Verbindungsnamen %1 gibt es bereits in der Datenbank.</translation>
    </message>
    <message>
        <source>Database error, failure in SaveParent.</source>
        <translation>Datenbankfehler, SaveParent ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Node name is empty.</source>
        <translation>Der Knotenname ist leer.</translation>
    </message>
    <message>
        <source>Node %1 already exists. Give a new name.</source>
        <translation>Den Knoten %1 gibt es bereits. Geben Sie einen anderen Namen ein.</translation>
    </message>
    <message>
        <source>Failure in database search.</source>
        <translation>Die Suche in der Datenbank ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>&apos;New Connection&apos; cannot be used as a connection name, give a new name.</source>
        <translation>„New Connection“ kann nicht als Verbindungsname verwendet werden; geben Sie einen anderen Namen ein.</translation>
    </message>
    <message>
        <source>Failure to get connection data from database.</source>
        <translation>Die Verbindungsdaten konnten nicht aus der Datenbank gelesen werden.</translation>
    </message>
    <message>
        <source>Nodes count for connection %1failed. Close the dialog and try again. </source>
        <translation>Die Knoten der Verbindung %1 konnten nicht gezählt werden. Schließen Sie das Dialogfeld und versuchen Sie es noch einmal. </translation>
    </message>
    <message>
        <source>Connection type cannot be changed, because the %1 connection already has node(s).</source>
        <translation>Der Verbindungstyp kann nicht geändert werden, weil die %1-Verbindung bereits Knoten hat.</translation>
    </message>
    <message>
        <source>%1 cannot be used, because the connection already has node(s).</source>
        <translation>%1 kann nicht verwendet werden, weil die Verbindung bereits Knoten hat.</translation>
    </message>
    <message>
        <source>%1 cannot be used as a connection type for the scanned nodes.</source>
        <translation>%1 kann nicht als Verbindungstyp für die gescannten Knoten verwendet werden.</translation>
    </message>
    <message>
        <source>Select connection part name or parameter from the listbox.</source>
        <translation>Wählen Sie einen Teil der Verbindung oder einen Parameter in der Liste aus.</translation>
    </message>
    <message>
        <source>Database is empty. In addition, before a node can be defined there must be at least one connection in the database.</source>
        <translation>Die Datenbank ist leer. Bevor ein Knoten festgelegt werden kann, muss mindestens eine Verbindung in der Datenbank stehen.</translation>
    </message>
    <message>
        <source>Connection Type: %1</source>
        <translation>Verbindungstyp: %1</translation>
    </message>
    <message>
        <source>Give Connection Name.</source>
        <translation>Geben Sie den Verbindungsnamen ein.</translation>
    </message>
    <message>
        <source>Error in waypoint parameters or mandatory waypoint is missing all its parameters.</source>
        <translation>Wegpunktparameter sind fehlerhaft oder einem notwendigen Wegpunkt fehlen alle Parameter.</translation>
    </message>
    <message>
        <source>%1 Parameters</source>
        <translation>Parameter von %1</translation>
    </message>
    <message>
        <source>One of several parameters that exclude each other</source>
        <translation>Einer von mehreren Parametern, die einander ausschließen</translation>
    </message>
    <message>
        <source>Mandatory parameter</source>
        <translation>Mussparameter</translation>
    </message>
    <message>
        <source>Default (%1)</source>
        <translation>Vorgabe (%1)</translation>
    </message>
    <message>
        <source>No value</source>
        <translation>Kein Wert</translation>
    </message>
    <message>
        <source>Value %1 out of range [%2,%3]. Give a new value.</source>
        <translation>Der Wert %1 liegt außerhalb des Bereichs [%2,%3]. Geben Sie einen anderen Wert ein.</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Identification</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>keine Antwort</translation>
    </message>
    <message>
        <source>Scanning ...</source>
        <translation>Scan läuft ...</translation>
    </message>
    <message>
        <source>No Bus found</source>
        <translation>Kein Bus gefunden</translation>
    </message>
    <message>
        <source>No bus selected.</source>
        <translation>Es ist kein Bus ausgewählt.</translation>
    </message>
    <message>
        <source>Buses could not be scanned.</source>
        <translation>Die Busse konnten nicht gescannt werden.</translation>
    </message>
    <message>
        <source>HVXSyncConn component creation failure</source>
        <translation>Die Komponente HVXSyncConn konnte nicht erzeugt werden</translation>
    </message>
    <message>
        <source>HVXUtility component creation failure</source>
        <translation>Die Komponente HVXUtility konnte nicht erzeugt werden</translation>
    </message>
    <message>
        <source>Scan failed due to component HVXSyncConn or HVXUtility.</source>
        <translation>Der Scan ist wegen der Komponente HVXSyncConn oder HVXUtility fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Bus scanning failed, because of missing components (either HVXSyncConn or HVXUtility is missing).</source>
        <translation>Der Scan der Busse ist fehlgeschlagen, weil Komponenten fehlen (entweder HVXSyncConn oder HVXUtility).</translation>
    </message>
    <message>
        <source>Database error, connection to database broken.</source>
        <translation>Datenbankfehler, die Verbindung zur Datenbank ist unterbrochen.</translation>
    </message>
    <message>
        <source>Nothing is selectd. Select node(s) from the above listbox.</source>
        <translation>Es ist nichts ausgewählt. Wählen Sie Knoten in der Liste oben aus.</translation>
    </message>
    <message>
        <source>Rename Node</source>
        <translation>Knoten umbenennen</translation>
    </message>
    <message>
        <source>Invalid characters in node name.</source>
        <translation>Ungültige Zeichen im Knotennamen.</translation>
    </message>
    <message>
        <source>Node name &apos;New Node&apos; cannot be used as a node name.</source>
        <translation>Der Name „New Node“ kann nicht als Knotenname verwendet werden.</translation>
    </message>
    <message>
        <source>Rename Node %1 (at address %2).</source>
        <translation>Knoten %1 (an der Adresse %2) umbenennen.</translation>
    </message>
    <message>
        <source>Node name &quot;%1&quot; length is %2 characters, %3 is allowed maximum length.</source>
        <translation>Der Knotenname „%1“ ist %2 Zeichen lang, erlaubt sind höchstens %3.</translation>
    </message>
    <message>
        <source>Connection name %1 already exists in the database. Give a new name, because nodes and connections cannot share the same name.</source>
        <translation>Den Verbindungsnamen %1 gibt es bereits in der Datenbank. Geben Sie einen anderen Namen ein, weil Knoten und Verbindungen nicht denselben Namen haben können.</translation>
    </message>
    <message>
        <source>%1 of %2 nodes are saved. Do you want to interrupt nodes saving to database ?</source>
        <translation>%1 von %2 Knoten sind gespeichert. Möchten Sie das Speichern in der Datenbank unterbrechen?</translation>
    </message>
    <message>
        <source>Node type NET4 not found.</source>
        <translation>Der Knotentyp NET4 wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Unknown node type:%1</source>
        <translation>Unbekannter Knotentyp: %1</translation>
    </message>
    <message>
        <source>Node saving is prevented, because another application has changed (deleted) connection %1.</source>
        <translation>Der Knoten kann nicht gespeichert werden, weil eine andere Anwendung die Verbindung %1 geändert (gelöscht) hat.</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>The nodes list is empty. First scan network and then save the found nodes.</source>
        <translation>Die Knotenliste ist leer. Scannen Sie zuerst das Netz und speichern Sie dann die gefundenen Knoten.</translation>
    </message>
    <message>
        <source>Connection used in scanning must be saved before the found nodes can be saved.</source>
        <translation>Die beim Scannen benutzte Verbindung muss gespeichert werden, bevor die gefundenen Knoten gespeichert werden können.</translation>
    </message>
    <message>
        <source>Another application has changed the scanned connection in the database. It must be saved before the found nodes can be saved.</source>
        <translation>Eine andere Anwendung hat die gescannte Verbindung in der Datenbank geändert. Sie muss gespeichert werden, bevor die gefundenen Knoten gespeichert werden können.</translation>
    </message>
    <message>
        <source>S&amp;tart</source>
        <translation>S&amp;tart</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Stop ...</source>
        <translation>Stopp ...</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Fortschritt des Scans</translation>
    </message>
    <message>
        <source>Scanning %1</source>
        <translation>Scan von %1</translation>
    </message>
    <message>
        <source>Scan %1</source>
        <translation>Scan %1</translation>
    </message>
    <message>
        <source>Give scan address range.</source>
        <translation>Geben Sie den Adressbereich des Scans ein.</translation>
    </message>
    <message>
        <source>Timing retries is out of range, allowd values are from %1 to %2.</source>
        <translation>Die Wiederholungen liegen außerhalb des Bereichs, erlaubt sind Werte von %1 bis %2.</translation>
    </message>
    <message>
        <source>Timing time-out is out of range, allowd values are from %1 to %2.</source>
        <translation>Das Zeitlimit liegt außerhalb des Bereichs, erlaubt sind Werte von %1 bis %2.</translation>
    </message>
    <message>
        <source>Address range end value must be equal or greater than the begin value.</source>
        <translation>Das Ende des Adressbereichs muss gleich dem Anfang oder größer sein.</translation>
    </message>
    <message>
        <source>The accepted address range for the scan is from 0 to %1</source>
        <translation>Der zulässige Adressbereich des Scans geht von 0 bis %1</translation>
    </message>
    <message>
        <source>Bus Number maximum value is %1.</source>
        <translation>Die höchste Busnummer ist %1.</translation>
    </message>
    <message>
        <source>Error in bus setting.</source>
        <translation>Fehler beim Einstellen des Busses.</translation>
    </message>
    <message>
        <source>Nothing selected.</source>
        <translation>Es ist nichts ausgewählt.</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Scan</translation>
    </message>
    <message>
        <source>No nodes were found in the scan.</source>
        <translation>Beim Scan wurden keine Knoten gefunden.</translation>
    </message>
    <message>
        <source>Probably HVX installation is defective or some required components are missing.</source>
        <translation>Wahrscheinlich ist die HVX-Installation fehlerhaft oder es fehlen notwendige Komponenten.</translation>
    </message>
    <message>
        <source>Connection could not be opened.</source>
        <translation>Die Verbindung konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Zelka HVX Service error, it is not runnig.</source>
        <translation>Fehler des Zelka-HVX-Dienstes, er läuft nicht.</translation>
    </message>
    <message>
        <source>The database cannot be read now.</source>
        <translation>Die Datenbank kann derzeit nicht gelesen werden.</translation>
    </message>
    <message>
        <source>As of %1; the database cannot be read now.</source>
        <translation>Stand von %1; die Datenbank kann derzeit nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Connections</source>
        <translation>Verbindungen</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>Knoten</translation>
    </message>
    <message>
        <source>Failure to set connection data.</source>
        <translation>Die Verbindungsdaten konnten nicht gesetzt werden.</translation>
    </message>
    <message>
        <source>Error in access to Journal table.</source>
        <translation>Fehler beim Zugriff auf die Journaltabelle.</translation>
    </message>
    <message>
        <source>Browser refresh error, incorrect value as reference to Journal table.</source>
        <translation>Fehler beim Aktualisieren des Browsers, falscher Wert als Verweis auf die Journaltabelle.</translation>
    </message>
    <message>
        <source>Error in item list conversion.</source>
        <translation>Fehler beim Umwandeln einer Elementliste.</translation>
    </message>
    <message>
        <source>Error in Journal table cleaning, in database method JournalClearByRecordLimit.</source>
        <translation>Fehler beim Bereinigen der Journaltabelle, in der Datenbankmethode JournalClearByRecordLimit.</translation>
    </message>
    <message>
        <source>Database loading failure.</source>
        <translation>Das Laden aus der Datenbank ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Failure in database operation. All modifications rolled back successfully.</source>
        <translation>Ein Datenbankvorgang ist fehlgeschlagen. Alle Änderungen wurden zurückgenommen.</translation>
    </message>
    <message>
        <source>Failure in a database operation and database also failed to roll back its changes. Warning, database may be corrupted.</source>
        <translation>Ein Datenbankvorgang ist fehlgeschlagen, und die Datenbank konnte ihre Änderungen nicht zurücknehmen. Achtung, die Datenbank ist möglicherweise beschädigt.</translation>
    </message>
    <message>
        <source>Loading Nodes.</source>
        <translation>Knoten werden geladen.</translation>
    </message>
    <message>
        <source>Opening Database.</source>
        <translation>Datenbank wird geöffnet.</translation>
    </message>
    <message>
        <source>Checking security options.</source>
        <translation>Berechtigungen werden geprüft.</translation>
    </message>
    <message>
        <source>Reading journal table.</source>
        <translation>Journaltabelle wird gelesen.</translation>
    </message>
    <message>
        <source>Failure in fetching RMX/30 privileges.</source>
        <translation>Die RMX/30-Berechtigungen konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Journal table access failure.</source>
        <translation>Auf die Journaltabelle konnte nicht zugegriffen werden.</translation>
    </message>
    <message>
        <source>Automatic update follows, try again.</source>
        <translation>Die Anzeige wird automatisch aktualisiert, versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Connection %1 cannot be accessed, because another application has changed it. Automatic update follows, try again.</source>
        <translation>Auf die Verbindung %1 kann nicht zugegriffen werden, weil eine andere Anwendung sie geändert hat. Die Anzeige wird automatisch aktualisiert, versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Node %1 cannot be accessed, because another application has changed it. Automatic update follows, try again.</source>
        <translation>Auf den Knoten %1 kann nicht zugegriffen werden, weil eine andere Anwendung ihn geändert hat. Die Anzeige wird automatisch aktualisiert, versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Missing connection index.</source>
        <translation>Der Verbindungsindex fehlt.</translation>
    </message>
    <message>
        <source>Missing node index.</source>
        <translation>Der Knotenindex fehlt.</translation>
    </message>
    <message>
        <source>A request is under way already.</source>
        <translation>Es ist bereits eine Anfrage unterwegs.</translation>
    </message>
    <message>
        <source>identification</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>The help file %1 cannot be used.</source>
        <translation>Die Hilfedatei %1 kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>There is no room for the help: %1</source>
        <translation>Es ist kein Platz für die Hilfe: %1</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>Es ist keine Datenbank geöffnet.</translation>
    </message>
    <message>
        <source>You have no right to change the database.</source>
        <translation>Sie haben kein Recht, die Datenbank zu ändern.</translation>
    </message>
    <message>
        <source>You have no right to scan.</source>
        <translation>Sie haben kein Recht zu scannen.</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Es ist nichts ausgewählt.</translation>
    </message>
    <message>
        <source>Select a connection or a node; this is the root of all.</source>
        <translation>Wählen Sie eine Verbindung oder einen Knoten aus; dies ist die Wurzel von allem.</translation>
    </message>
    <message>
        <source>A waypoint is selected; select its connection.</source>
        <translation>Ein Wegpunkt ist ausgewählt; wählen Sie seine Verbindung aus.</translation>
    </message>
    <message>
        <source>A node is selected; select its connection.</source>
        <translation>Ein Knoten ist ausgewählt; wählen Sie seine Verbindung aus.</translation>
    </message>
    <message>
        <source>Nothing is added below a node; select a connection, or turn to the nodes.</source>
        <translation>Unter einem Knoten wird nichts hinzugefügt; wählen Sie eine Verbindung aus oder wechseln Sie zu den Knoten.</translation>
    </message>
    <message>
        <source>Select a connection.</source>
        <translation>Wählen Sie eine Verbindung aus.</translation>
    </message>
    <message>
        <source>Connections are scanned; turn to the connections.</source>
        <translation>Gescannt werden Verbindungen; wechseln Sie zu den Verbindungen.</translation>
    </message>
    <message>
        <source>The connection reaches its node by SNMP; there is nothing to scan.</source>
        <translation>Die Verbindung erreicht ihren Knoten über SNMP; es gibt nichts zu scannen.</translation>
    </message>
    <message>
        <source>Only a connection that reaches its node by SNMP uses this.</source>
        <translation>Das verwendet nur eine Verbindung, die ihren Knoten über SNMP erreicht.</translation>
    </message>
    <message>
        <source>The connections show their waypoints; choose View Nodes.</source>
        <translation>Die Verbindungen zeigen ihre Wegpunkte; wählen Sie „Knoten zeigen“.</translation>
    </message>
    <message>
        <source>Select a node.</source>
        <translation>Wählen Sie einen Knoten aus.</translation>
    </message>
    <message>
        <source>No manager is known for this node.</source>
        <translation>Für diesen Knoten ist kein Manager bekannt.</translation>
    </message>
    <message>
        <source>All nodes are loaded.</source>
        <translation>Alle Knoten sind geladen.</translation>
    </message>
    <message>
        <source>The connection has no more nodes.</source>
        <translation>Die Verbindung hat keine weiteren Knoten.</translation>
    </message>
    <message>
        <source>No connection is chosen.</source>
        <translation>Es ist keine Verbindung gewählt.</translation>
    </message>
    <message>
        <source>The scan runs; stop it first.</source>
        <translation>Der Scan läuft; stoppen Sie ihn zuerst.</translation>
    </message>
    <message>
        <source>No nodes have been found yet.</source>
        <translation>Es wurden noch keine Knoten gefunden.</translation>
    </message>
    <message>
        <source>Select a found node.</source>
        <translation>Wählen Sie einen gefundenen Knoten aus.</translation>
    </message>
    <message>
        <source>The connection has no bus to choose.</source>
        <translation>Die Verbindung hat keinen Bus, der gewählt werden könnte.</translation>
    </message>
    <message>
        <source>Select a bus.</source>
        <translation>Wählen Sie einen Bus aus.</translation>
    </message>
    <message>
        <source>The list is empty.</source>
        <translation>Die Liste ist leer.</translation>
    </message>
    <message>
        <source>Select one or more nodes of the list.</source>
        <translation>Wählen Sie einen oder mehrere Knoten der Liste aus.</translation>
    </message>
    <message>
        <source>A selected name is too long; rename it.</source>
        <translation>Ein ausgewählter Name ist zu lang; benennen Sie den Knoten um.</translation>
    </message>
    <message>
        <source>A selected name exists already; rename it, or replace the stored node.</source>
        <translation>Einen ausgewählten Namen gibt es bereits; benennen Sie den Knoten um oder ersetzen Sie den gespeicherten.</translation>
    </message>
    <message>
        <source>Nothing has been changed.</source>
        <translation>Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>A node that is reached by SNMP has no manager.</source>
        <translation>Ein Knoten, der über SNMP erreicht wird, hat keinen Manager.</translation>
    </message>
    <message>
        <source>There is no target.</source>
        <translation>Es gibt kein Ziel.</translation>
    </message>
    <message>
        <source>Type a request.</source>
        <translation>Geben Sie eine Anfrage ein.</translation>
    </message>
    <message>
        <source>A reply is still waited for.</source>
        <translation>Es wird noch auf eine Antwort gewartet.</translation>
    </message>
    <message>
        <source>There is no connection.</source>
        <translation>Es besteht keine Verbindung.</translation>
    </message>
    <message>
        <source>Select a found node first.</source>
        <translation>Wählen Sie zuerst einen gefundenen Knoten aus.</translation>
    </message>
    <message>
        <source>&amp;Copy Address</source>
        <translation>A&amp;dresse kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;Identification</source>
        <translation>&amp;Kennung kopieren</translation>
    </message>
    <message>
        <source>Copy Ta&amp;rget</source>
        <translation>&amp;Ziel kopieren</translation>
    </message>
    <message>
        <source>A target begins with &quot;WP=&quot; and the name of a waypoint.</source>
        <translation>Eine Zielangabe beginnt mit „WP=“ und dem Namen eines Wegpunkts.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no &quot;=&quot;. Items are written as keyword=value, with commas between them.</source>
        <translation>„%1“ hat kein „=“. Elemente werden als Schlüsselwort=Wert geschrieben, mit Kommas dazwischen.</translation>
    </message>
    <message>
        <source>The target has no items, only commas.</source>
        <translation>Die Zielangabe hat keine Elemente, nur Kommas.</translation>
    </message>
    <message>
        <source>Copy &amp;Name</source>
        <translation>&amp;Namen kopieren</translation>
    </message>
    <message>
        <source>Select a connection or a node first.</source>
        <translation>Wählen Sie zuerst eine Verbindung oder einen Knoten aus.</translation>
    </message>
    <message>
        <source>Copy &amp;Target</source>
        <translation>&amp;Ziel kopieren</translation>
    </message>
    <message>
        <source>The target has no address.</source>
        <translation>Das Ziel hat keine Adresse.</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>Su&amp;chen...</translation>
    </message>
    <message>
        <source>No Version Info available!</source>
        <translation>Keine Versionsangabe vorhanden!</translation>
    </message>
    <message>
        <source>%1 debug</source>
        <translation>%1 Debug</translation>
    </message>
</context>
<context>
    <name>WorkstationWindow</name>
    <message>
        <source>Zelka Workstation</source>
        <translation>Zelka Workstation</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Sett&amp;ings</source>
        <translation>Einstell&amp;ungen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Refresh &amp;Automatically</source>
        <translation>&amp;Automatisch aktualisieren</translation>
    </message>
    <message>
        <source>Show &amp;Refresh Button</source>
        <translation>Schaltfläche „Aktualisie&amp;ren“ zeigen</translation>
    </message>
    <message>
        <source>Show &amp;Manage Button</source>
        <translation>Schaltfläche „&amp;Verwalten“ zeigen</translation>
    </message>
    <message>
        <source>Open on the &amp;Direct Tab</source>
        <translation>Mit der Seite „&amp;Direkt“ beginnen</translation>
    </message>
    <message>
        <source>&amp;About...</source>
        <translation>Ü&amp;ber...</translation>
    </message>
    <message>
        <source>%1 - Zelka Workstation</source>
        <translation>%1 - Zelka Workstation</translation>
    </message>
    <message>
        <source>No database, direct targets only</source>
        <translation>Keine Datenbank, nur direkte Ziele</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>The &amp;Workstation</source>
        <translation>Die &amp;Workstation</translation>
    </message>
    <message>
        <source>&amp;Database Tab</source>
        <translation>Seite „&amp;Datenbank“</translation>
    </message>
    <message>
        <source>Di&amp;rect Tab</source>
        <translation>Seite „Di&amp;rekt“</translation>
    </message>
    <message>
        <source>&amp;Finding Entries</source>
        <translation>&amp;Einträge finden</translation>
    </message>
    <message>
        <source>&amp;Other Workstations</source>
        <translation>&amp;Andere Workstations</translation>
    </message>
    <message>
        <source>&amp;Keyboard</source>
        <translation>&amp;Tastatur</translation>
    </message>
    <message>
        <source>&amp;Messages</source>
        <translation>&amp;Meldungen</translation>
    </message>
    <message>
        <source>Command &amp;Line</source>
        <translation>Befehls&amp;zeile</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Colours of the &amp;System</source>
        <translation>Farben des &amp;Systems</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>High &amp;Contrast</source>
        <translation>Hoher &amp;Kontrast</translation>
    </message>
    <message>
        <source>Status Li&amp;ne</source>
        <translation>Status&amp;zeile</translation>
    </message>
</context>
<context>
    <name>frmAbout</name>
    <message>
        <source>About Zelka Workstation</source>
        <translation>Über Zelka Workstation</translation>
    </message>
    <message>
        <source>Picture of the application</source>
        <translation>Bild der Anwendung</translation>
    </message>
    <message>
        <source>Zelka Workstation</source>
        <translation>Zelka Workstation</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>Qt:</source>
        <translation>Qt:</translation>
    </message>
    <message>
        <source>Database:</source>
        <translation>Datenbank:</translation>
    </message>
    <message>
        <source>Database in use</source>
        <translation>Benutzte Datenbank</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Version ...</source>
        <translation>&amp;Version ...</translation>
    </message>
    <message>
        <source>Which version of the control is registered</source>
        <translation>Welche Version des Steuerelements registriert ist</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Dieses Fenster schließen</translation>
    </message>
</context>
<context>
    <name>frmBusSelection</name>
    <message>
        <source>Scan: Found Buses</source>
        <translation>Scan: Gefundene Busse</translation>
    </message>
    <message>
        <source>Select Bus for Scanning:</source>
        <translation>Bus zum Scannen auswählen:</translation>
    </message>
    <message>
        <source>Buses that the far end of the connection serves</source>
        <translation>Busse, die das ferne Ende der Verbindung bedient</translation>
    </message>
    <message>
        <source>Buses</source>
        <translation>Busse</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Scan the selected bus</source>
        <translation>Den ausgewählten Bus scannen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Keep the bus as it is</source>
        <translation>Den Bus lassen, wie er ist</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmChSelPktSize</name>
    <message>
        <source>FE CHANNEL and PACKET SIZE</source>
        <translation>FE CHANNEL und PACKET SIZE</translation>
    </message>
    <message>
        <source>The FE CHANNEL and PACKET SIZE should be matched. For more details please click &quot;Help&quot; button.</source>
        <translation>FE CHANNEL und PACKET SIZE sollten zueinander passen. Einzelheiten zeigt die Schaltfläche „Hilfe“.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Close this window and go on with the node</source>
        <translation>Dieses Fenster schließen und mit dem Knoten fortfahren</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show which packet size belongs to which channel (F1)</source>
        <translation>Zeigen, welche Paketgröße zu welchem Kanal gehört (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmConNodesProgress</name>
    <message>
        <source>Database Loading</source>
        <translation>Laden aus der Datenbank</translation>
    </message>
    <message>
        <source>Database loading in progress.</source>
        <translation>Die Datenbank wird geladen.</translation>
    </message>
    <message>
        <source>Loading progress</source>
        <translation>Fortschritt des Ladens</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Interrupt the loading; what is loaded stays</source>
        <translation>Das Laden unterbrechen; was geladen ist, bleibt</translation>
    </message>
</context>
<context>
    <name>frmDatabaseConProp</name>
    <message>
        <source>Connection Properties</source>
        <translation>Eigenschaften der Verbindung</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the connection to the database</source>
        <translation>Die Verbindung in der Datenbank speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Schließen, ohne zu speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmDatabaseNodeProp</name>
    <message>
        <source>Node Properties</source>
        <translation>Eigenschaften des Knotens</translation>
    </message>
    <message>
        <source>Connection type picture</source>
        <translation>Bild des Verbindungstyps</translation>
    </message>
    <message>
        <source>&amp;Node Name:</source>
        <translation>K&amp;notenname:</translation>
    </message>
    <message>
        <source>Node Name</source>
        <translation>Knotenname</translation>
    </message>
    <message>
        <source>Name of the node; Esc brings the former name back</source>
        <translation>Name des Knotens; Esc holt den früheren Namen zurück</translation>
    </message>
    <message>
        <source>Node name</source>
        <translation>Knotenname</translation>
    </message>
    <message>
        <source>C&amp;onnection Name:</source>
        <translation>V&amp;erbindungsname:</translation>
    </message>
    <message>
        <source>Connection over which the node is reached</source>
        <translation>Verbindung, über die der Knoten erreicht wird</translation>
    </message>
    <message>
        <source>Connection name</source>
        <translation>Verbindungsname</translation>
    </message>
    <message>
        <source>Connection Type:</source>
        <translation>Verbindungstyp:</translation>
    </message>
    <message>
        <source>Node C&amp;lass:</source>
        <translation>Knoten&amp;klasse:</translation>
    </message>
    <message>
        <source>Class of the node; another class discards the parameters</source>
        <translation>Klasse des Knotens; eine andere Klasse verwirft die Parameter</translation>
    </message>
    <message>
        <source>Node class</source>
        <translation>Knotenklasse</translation>
    </message>
    <message>
        <source>&amp;Manager Info</source>
        <translation>&amp;Manager-Info</translation>
    </message>
    <message>
        <source>Choose the manager of the node</source>
        <translation>Den Manager des Knotens wählen</translation>
    </message>
    <message>
        <source>Manager Info</source>
        <translation>Manager-Info</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the node to the database</source>
        <translation>Den Knoten in der Datenbank speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Schließen, ohne zu speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmDirectProp</name>
    <message>
        <source>Connection Properties</source>
        <translation>Eigenschaften der Verbindung</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>Ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>Use the connection on the Direct tab without saving it</source>
        <translation>Die Verbindung auf der Seite „Direkt“ verwenden, ohne sie zu speichern</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the connection to the database</source>
        <translation>Die Verbindung in der Datenbank speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Schließen, ohne zu speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmFindElement</name>
    <message>
        <source>Find Element</source>
        <translation>Element suchen</translation>
    </message>
    <message>
        <source>String to be &amp;matched:</source>
        <translation>Zu &amp;suchender Text:</translation>
    </message>
    <message>
        <source>A part of the text of the entries to find, in upper or lower case</source>
        <translation>Ein Teil des Textes der gesuchten Einträge, groß oder klein geschrieben</translation>
    </message>
    <message>
        <source>String to be matched</source>
        <translation>Zu suchender Text</translation>
    </message>
    <message>
        <source>Number of entries found</source>
        <translation>Anzahl der gefundenen Einträge</translation>
    </message>
    <message>
        <source>&amp;Next &gt;&gt;</source>
        <translation>&amp;Weiter &gt;&gt;</translation>
    </message>
    <message>
        <source>Show the entries whose text contains the string</source>
        <translation>Die Einträge zeigen, deren Text die Zeichenfolge enthält</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close without a search</source>
        <translation>Schließen, ohne zu suchen</translation>
    </message>
    <message>
        <source>Entries found: %1</source>
        <translation>Gefundene Einträge: %1</translation>
    </message>
</context>
<context>
    <name>frmLoadProgress</name>
    <message>
        <source>Database Loading</source>
        <translation>Laden aus der Datenbank</translation>
    </message>
    <message>
        <source>Database loading in progress.</source>
        <translation>Die Datenbank wird geladen.</translation>
    </message>
    <message>
        <source>Loading progress</source>
        <translation>Fortschritt des Ladens</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Interrupt the loading; what is loaded stays</source>
        <translation>Das Laden unterbrechen; was geladen ist, bleibt</translation>
    </message>
</context>
<context>
    <name>frmMngrInfo</name>
    <message>
        <source>Manager Info</source>
        <translation>Manager-Info</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Device whose manager operates the node; empty for none</source>
        <translation>Gerät, dessen Manager den Knoten bedient; leer für keines</translation>
    </message>
    <message>
        <source>Device name</source>
        <translation>Gerätename</translation>
    </message>
    <message>
        <source>Path:</source>
        <translation>Pfad:</translation>
    </message>
    <message>
        <source>Path of the manager, which may be changed for this node</source>
        <translation>Pfad des Managers, der für diesen Knoten geändert werden kann</translation>
    </message>
    <message>
        <source>Path of the manager</source>
        <translation>Pfad des Managers</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Use this manager for the node</source>
        <translation>Diesen Manager für den Knoten verwenden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Keep the manager that the node has</source>
        <translation>Den Manager behalten, den der Knoten hat</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Failure in loading data to combo box.</source>
        <translation>Die Daten des Kombinationsfelds konnten nicht geladen werden.</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
</context>
<context>
    <name>frmSaveDirectNode</name>
    <message>
        <source>Save Node</source>
        <translation>Knoten speichern</translation>
    </message>
    <message>
        <source>&amp;Node Name:</source>
        <translation>K&amp;notenname:</translation>
    </message>
    <message>
        <source>Node Name</source>
        <translation>Knotenname</translation>
    </message>
    <message>
        <source>Name of the node; Esc brings the former name back</source>
        <translation>Name des Knotens; Esc holt den früheren Namen zurück</translation>
    </message>
    <message>
        <source>Node name</source>
        <translation>Knotenname</translation>
    </message>
    <message>
        <source>C&amp;onnection Name:</source>
        <translation>V&amp;erbindungsname:</translation>
    </message>
    <message>
        <source>Connection over which the node is reached</source>
        <translation>Verbindung, über die der Knoten erreicht wird</translation>
    </message>
    <message>
        <source>Connection name</source>
        <translation>Verbindungsname</translation>
    </message>
    <message>
        <source>Connection &amp;Type:</source>
        <translation>Verbindungs&amp;typ:</translation>
    </message>
    <message>
        <source>Type of the connection</source>
        <translation>Typ der Verbindung</translation>
    </message>
    <message>
        <source>Connection type</source>
        <translation>Verbindungstyp</translation>
    </message>
    <message>
        <source>Node C&amp;lass:</source>
        <translation>Knoten&amp;klasse:</translation>
    </message>
    <message>
        <source>Class of the node</source>
        <translation>Klasse des Knotens</translation>
    </message>
    <message>
        <source>Node class</source>
        <translation>Knotenklasse</translation>
    </message>
    <message>
        <source>&amp;Manager Info</source>
        <translation>&amp;Manager-Info</translation>
    </message>
    <message>
        <source>Choose the manager of the node</source>
        <translation>Den Manager des Knotens wählen</translation>
    </message>
    <message>
        <source>Manager Info</source>
        <translation>Manager-Info</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the node to the database</source>
        <translation>Den Knoten in der Datenbank speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Schließen, ohne zu speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Unknown node type:%1</source>
        <translation>Unbekannter Knotentyp: %1</translation>
    </message>
</context>
<context>
    <name>frmScan</name>
    <message>
        <source>Scan</source>
        <translation>Scan</translation>
    </message>
    <message>
        <source>Address Range</source>
        <translation>Adressbereich</translation>
    </message>
    <message>
        <source>Begin:</source>
        <translation>Anfang:</translation>
    </message>
    <message>
        <source>First address to ask, from 0 to 4094</source>
        <translation>Erste Adresse, die gefragt wird, von 0 bis 4094</translation>
    </message>
    <message>
        <source>First Address</source>
        <translation>Erste Adresse</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>Ende:</translation>
    </message>
    <message>
        <source>Last address to ask, from 0 to 4094</source>
        <translation>Letzte Adresse, die gefragt wird, von 0 bis 4094</translation>
    </message>
    <message>
        <source>Last Address</source>
        <translation>Letzte Adresse</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Zeitverhalten</translation>
    </message>
    <message>
        <source>Retries:</source>
        <translation>Wiederholungen:</translation>
    </message>
    <message>
        <source>How often a silent node is asked again; empty: as the connection has it</source>
        <translation>Wie oft ein stummer Knoten noch einmal gefragt wird; leer: wie bei der Verbindung</translation>
    </message>
    <message>
        <source>Retries</source>
        <translation>Wiederholungen</translation>
    </message>
    <message>
        <source>Time-out:</source>
        <translation>Zeitlimit:</translation>
    </message>
    <message>
        <source>How long to wait for an answer, in milliseconds; empty: as the connection has it</source>
        <translation>Wie lange auf eine Antwort gewartet wird, in Millisekunden; leer: wie bei der Verbindung</translation>
    </message>
    <message>
        <source>Time-out in Milliseconds</source>
        <translation>Zeitlimit in Millisekunden</translation>
    </message>
    <message>
        <source>Zelka Mediation Function Bus</source>
        <translation>Bus der Zelka-Vermittlungsfunktion</translation>
    </message>
    <message>
        <source>Selected Bus:</source>
        <translation>Ausgewählter Bus:</translation>
    </message>
    <message>
        <source>Number of the bus to scan</source>
        <translation>Nummer des Busses, der gescannt wird</translation>
    </message>
    <message>
        <source>Selected Bus</source>
        <translation>Ausgewählter Bus</translation>
    </message>
    <message>
        <source>Show List</source>
        <translation>Liste zeigen</translation>
    </message>
    <message>
        <source>Ask the far end which buses it serves</source>
        <translation>Das ferne Ende fragen, welche Busse es bedient</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Start again at the first address when the last one was asked</source>
        <translation>Nach der letzten Adresse wieder bei der ersten beginnen</translation>
    </message>
    <message>
        <source>S&amp;tart</source>
        <translation>S&amp;tart</translation>
    </message>
    <message>
        <source>Start the scan; while it runs, stop it (Esc)</source>
        <translation>Den Scan starten; solange er läuft, ihn stoppen (Esc)</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Fortschritt des Scans</translation>
    </message>
    <message>
        <source>Found Nodes</source>
        <translation>Gefundene Knoten</translation>
    </message>
    <message>
        <source>S&amp;elect</source>
        <translation>A&amp;uswählen</translation>
    </message>
    <message>
        <source>Take the selected node to the Direct tab</source>
        <translation>Den ausgewählten Knoten auf die Seite „Direkt“ übernehmen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Speichern...</translation>
    </message>
    <message>
        <source>Save the selected node to the database</source>
        <translation>Den ausgewählten Knoten in der Datenbank speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save &amp;All...</source>
        <translation>&amp;Alle speichern...</translation>
    </message>
    <message>
        <source>Save all found nodes to the database</source>
        <translation>Alle gefundenen Knoten in der Datenbank speichern</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Dieses Fenster schließen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmScanNotSavedList</name>
    <message>
        <source>Scan Results Selection for Database Saving</source>
        <translation>Auswahl der Scanergebnisse zum Speichern in der Datenbank</translation>
    </message>
    <message>
        <source>Select nodes for database saving:</source>
        <translation>Wählen Sie die Knoten aus, die gespeichert werden:</translation>
    </message>
    <message>
        <source>Node name conflict types:</source>
        <translation>Konflikte der Knotennamen:</translation>
    </message>
    <message>
        <source> Address  Node Name</source>
        <translation> Adresse  Knotenname</translation>
    </message>
    <message>
        <source>Name exists in database</source>
        <translation>Name bereits vorhanden</translation>
    </message>
    <message>
        <source>Name length too long</source>
        <translation>Name zu lang</translation>
    </message>
    <message>
        <source>Nodes that are not saved yet; a double click gives one another name</source>
        <translation>Knoten, die noch nicht gespeichert sind; ein Doppelklick gibt einem einen anderen Namen</translation>
    </message>
    <message>
        <source>Nodes to save</source>
        <translation>Zu speichernde Knoten</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alle auswählen</translation>
    </message>
    <message>
        <source>Select all nodes of the list</source>
        <translation>Alle Knoten der Liste auswählen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>R&amp;ename...</source>
        <translation>&amp;Umbenennen...</translation>
    </message>
    <message>
        <source>Give the selected nodes other names, one after another</source>
        <translation>Den ausgewählten Knoten nacheinander andere Namen geben</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the selected nodes as new ones</source>
        <translation>Die ausgewählten Knoten als neue speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&amp;Replace/Save</source>
        <translation>&amp;Ersetzen/Speichern</translation>
    </message>
    <message>
        <source>Save the selected nodes, in the place of those that have their names</source>
        <translation>Die ausgewählten Knoten speichern, anstelle derer, die ihre Namen tragen</translation>
    </message>
    <message>
        <source>Replace or Save</source>
        <translation>Ersetzen oder speichern</translation>
    </message>
    <message>
        <source>&amp;Manager Info</source>
        <translation>&amp;Manager-Info</translation>
    </message>
    <message>
        <source>Choose the manager of the nodes that are saved from now on</source>
        <translation>Den Manager der Knoten wählen, die von nun an gespeichert werden</translation>
    </message>
    <message>
        <source>Manager Info</source>
        <translation>Manager-Info</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close; what is saved stays</source>
        <translation>Schließen; was gespeichert ist, bleibt</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmScanSaveAll</name>
    <message>
        <source>Scan Results: Save All</source>
        <translation>Scanergebnisse: Alle speichern</translation>
    </message>
    <message>
        <source>How to name nodes in database saving ?</source>
        <translation>Wie sollen die Knoten beim Speichern heißen?</translation>
    </message>
    <message>
        <source>Use node identification as node name.</source>
        <translation>Die Kennung des Knotens als Knotennamen verwenden.</translation>
    </message>
    <message>
        <source>Each node gets the name that it has told in the scan</source>
        <translation>Jeder Knoten bekommt den Namen, den er beim Scan genannt hat</translation>
    </message>
    <message>
        <source>Generate node name from prefix and the checked items.</source>
        <translation>Den Knotennamen aus Präfix und gewählten Angaben bilden.</translation>
    </message>
    <message>
        <source>Prefix, a comma, then the checked items with blanks between them</source>
        <translation>Präfix, ein Komma, dann die gewählten Angaben mit Leerzeichen dazwischen</translation>
    </message>
    <message>
        <source>Prefix:</source>
        <translation>Präfix:</translation>
    </message>
    <message>
        <source>What every name begins with</source>
        <translation>Womit jeder Name beginnt</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Präfix</translation>
    </message>
    <message>
        <source>Node address.</source>
        <translation>Adresse des Knotens.</translation>
    </message>
    <message>
        <source>Node identification.</source>
        <translation>Kennung des Knotens.</translation>
    </message>
    <message>
        <source>Node type.</source>
        <translation>Typ des Knotens.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Name the nodes so and choose which to save</source>
        <translation>Die Knoten so benennen und die zu speichernden auswählen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Schließen, ohne zu speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>frmScanSelSaveProgress</name>
    <message>
        <source>Nodes Saving</source>
        <translation>Speichern der Knoten</translation>
    </message>
    <message>
        <source>Nodes saving in progress.</source>
        <translation>Die Knoten werden gespeichert.</translation>
    </message>
    <message>
        <source>Saving progress</source>
        <translation>Fortschritt des Speicherns</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Interrupt the saving; what is saved stays</source>
        <translation>Das Speichern unterbrechen; was gespeichert ist, bleibt</translation>
    </message>
    <message>
        <source>Interrupt Saving</source>
        <translation>Speichern unterbrechen</translation>
    </message>
</context>
<context>
    <name>frmSelectTreeNode</name>
    <message>
        <source>Search result</source>
        <translation>Suchergebnis</translation>
    </message>
    <message>
        <source>Entries found</source>
        <translation>Gefundene Einträge</translation>
    </message>
    <message>
        <source>Entries whose text contains the string; those that are not loaded yet stand in a group of their own</source>
        <translation>Einträge, deren Text die Zeichenfolge enthält; die noch nicht geladenen stehen in einer eigenen Gruppe</translation>
    </message>
    <message>
        <source>State of the search</source>
        <translation>Stand der Suche</translation>
    </message>
    <message>
        <source>Search progress</source>
        <translation>Fortschritt der Suche</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>Sto&amp;ppen</translation>
    </message>
    <message>
        <source>End the search in the database; what is found stays</source>
        <translation>Die Suche in der Datenbank beenden; was gefunden ist, bleibt</translation>
    </message>
    <message>
        <source>&lt;&lt; &amp;Back</source>
        <translation>&lt;&lt; &amp;Zurück</translation>
    </message>
    <message>
        <source>Search for another text</source>
        <translation>Nach einem anderen Text suchen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Fertig</translation>
    </message>
    <message>
        <source>Go to the selected entry</source>
        <translation>Zum ausgewählten Eintrag gehen</translation>
    </message>
    <message>
        <source>Entries found: %1</source>
        <translation>Gefundene Einträge: %1</translation>
    </message>
    <message>
        <source>
What is not loaded yet could not be searched to the end.</source>
        <translation>
Was noch nicht geladen ist, konnte nicht zu Ende durchsucht werden.</translation>
    </message>
    <message>
        <source>
What is not loaded yet was not searched to the end.</source>
        <translation>
Was noch nicht geladen ist, wurde nicht zu Ende durchsucht.</translation>
    </message>
    <message>
        <source>No items found!</source>
        <translation>Es wurden keine Elemente gefunden!</translation>
    </message>
</context>
<context>
    <name>frmSplash</name>
    <message>
        <source>Zelka Connection Browser</source>
        <translation>Zelka Connection Browser</translation>
    </message>
    <message>
        <source>Picture of the application</source>
        <translation>Bild der Anwendung</translation>
    </message>
    <message>
        <source>Version of the registered control</source>
        <translation>Version des registrierten Steuerelements</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Dieses Fenster schließen</translation>
    </message>
</context>
<context>
    <name>frmWpProp</name>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Type, press Enter or F2 to change a value</source>
        <translation>Tippen Sie oder drücken Sie die Eingabetaste oder F2, um einen Wert zu ändern</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Take over the values</source>
        <translation>Die Werte übernehmen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close and leave the values as they were</source>
        <translation>Schließen und die Werte lassen, wie sie waren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Die Hilfe zu diesem Fenster zeigen (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Step the value</source>
        <translation>Den Wert schrittweise ändern</translation>
    </message>
</context>
</TS>
