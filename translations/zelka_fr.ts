<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AccessibleTreeItem</name>
    <message>
        <source>level %1, entry %2 of %3</source>
        <translation>niveau %1, entrée %2 sur %3</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
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
        <translation>Base de données ou cible directe</translation>
    </message>
    <message>
        <source>Database</source>
        <translation>Base de données</translation>
    </message>
    <message>
        <source>Connection type picture</source>
        <translation>Image du type de connexion</translation>
    </message>
    <message>
        <source>Connections</source>
        <translation>Connexions</translation>
    </message>
    <message>
        <source>Show the connections, and below them their waypoints or nodes</source>
        <translation>Afficher les connexions et, au-dessous, leurs points de passage ou leurs nœuds</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>Nœuds</translation>
    </message>
    <message>
        <source>Show all nodes</source>
        <translation>Afficher tous les nœuds</translation>
    </message>
    <message>
        <source>As of when the trees are, while the database cannot be read</source>
        <translation>Date des arbres tant que la base de données ne peut pas être lue</translation>
    </message>
    <message>
        <source>View Nodes</source>
        <translation>Afficher les nœuds</translation>
    </message>
    <message>
        <source>Show nodes instead of waypoints below the connections</source>
        <translation>Afficher les nœuds au lieu des points de passage sous les connexions</translation>
    </message>
    <message>
        <source>Find in tree</source>
        <translation>Rechercher dans l’arbre</translation>
    </message>
    <message>
        <source>&amp;Add ...</source>
        <translation>&amp;Ajouter ...</translation>
    </message>
    <message>
        <source>Add a connection or a node</source>
        <translation>Ajouter une connexion ou un nœud</translation>
    </message>
    <message>
        <source>&amp;Properties..</source>
        <translation>&amp;Propriétés..</translation>
    </message>
    <message>
        <source>Show and change the selected connection or node</source>
        <translation>Afficher et modifier la connexion ou le nœud sélectionné</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>Remove the selected connection or node from the database</source>
        <translation>Supprimer de la base de données la connexion ou le nœud sélectionné</translation>
    </message>
    <message>
        <source>&amp;Scan...</source>
        <translation>&amp;Balayer...</translation>
    </message>
    <message>
        <source>Scan the selected connection for nodes</source>
        <translation>Rechercher les nœuds de la connexion sélectionnée par balayage</translation>
    </message>
    <message>
        <source>&amp;Manage</source>
        <translation>&amp;Gérer</translation>
    </message>
    <message>
        <source>Start the manager of the selected node</source>
        <translation>Lancer le gestionnaire du nœud sélectionné</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>Act&amp;ualiser</translation>
    </message>
    <message>
        <source>Show what other applications have changed</source>
        <translation>Afficher ce que d’autres applications ont modifié</translation>
    </message>
    <message>
        <source>&amp;Load More</source>
        <translation>&amp;Charger plus</translation>
    </message>
    <message>
        <source>Load the next nodes from the database</source>
        <translation>Charger les nœuds suivants depuis la base de données</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show help about this tab</source>
        <translation>Afficher l’aide sur cet onglet</translation>
    </message>
    <message>
        <source>Help about the Database tab</source>
        <translation>Aide sur l’onglet «&#xa0;Base de données&#xa0;»</translation>
    </message>
    <message>
        <source>Direct</source>
        <translation>Direct</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Connection over which the node is reached</source>
        <translation>Connexion par laquelle le nœud est joint</translation>
    </message>
    <message>
        <source>Connection name</source>
        <translation>Nom de la connexion</translation>
    </message>
    <message>
        <source>Pr&amp;operties...</source>
        <translation>Pr&amp;opriétés...</translation>
    </message>
    <message>
        <source>Define the connection</source>
        <translation>Définir la connexion</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Type&#xa0;:</translation>
    </message>
    <message>
        <source>Connection Type Disabled</source>
        <translation>Type de connexion désactivé</translation>
    </message>
    <message>
        <source>Type of the connection</source>
        <translation>Type de la connexion</translation>
    </message>
    <message>
        <source>Connection type</source>
        <translation>Type de connexion</translation>
    </message>
    <message>
        <source>H&amp;elp</source>
        <translation>Ai&amp;de</translation>
    </message>
    <message>
        <source>Help about the Direct tab</source>
        <translation>Aide sur l’onglet «&#xa0;Direct&#xa0;»</translation>
    </message>
    <message>
        <source>Node Parameters</source>
        <translation>Paramètres du nœud</translation>
    </message>
    <message>
        <source>Node parameters</source>
        <translation>Paramètres du nœud</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adresse&#xa0;:</translation>
    </message>
    <message>
        <source>Address of the node on the bus</source>
        <translation>Adresse du nœud sur le bus</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>FE ID:</source>
        <translation>ID FE&#xa0;:</translation>
    </message>
    <message>
        <source>Identification of the front end</source>
        <translation>Identification du frontal</translation>
    </message>
    <message>
        <source>FE ID</source>
        <translation>ID FE</translation>
    </message>
    <message>
        <source>Retries:</source>
        <translation>Répétitions&#xa0;:</translation>
    </message>
    <message>
        <source>How often an unanswered request is repeated</source>
        <translation>Nombre de répétitions d’une requête restée sans réponse</translation>
    </message>
    <message>
        <source>Retries</source>
        <translation>Répétitions</translation>
    </message>
    <message>
        <source>FE Channel:</source>
        <translation>Canal FE&#xa0;:</translation>
    </message>
    <message>
        <source>Channel of the front end</source>
        <translation>Canal du frontal</translation>
    </message>
    <message>
        <source>FE Channel</source>
        <translation>Canal FE</translation>
    </message>
    <message>
        <source>Time-out:</source>
        <translation>Délai&#xa0;:</translation>
    </message>
    <message>
        <source>Milliseconds that a request waits for its answer</source>
        <translation>Millisecondes pendant lesquelles une requête attend sa réponse</translation>
    </message>
    <message>
        <source>Time-out</source>
        <translation>Délai</translation>
    </message>
    <message>
        <source>S&amp;can...</source>
        <translation>Ba&amp;layer...</translation>
    </message>
    <message>
        <source>Scan the connection for nodes</source>
        <translation>Rechercher les nœuds de la connexion par balayage</translation>
    </message>
    <message>
        <source>User Name:</source>
        <translation>Utilisateur&#xa0;:</translation>
    </message>
    <message>
        <source>Name under which to log in</source>
        <translation>Nom sous lequel se connecter</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>Nom d’utilisateur</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Mot de passe&#xa0;:</translation>
    </message>
    <message>
        <source>Password of that user</source>
        <translation>Mot de passe de cet utilisateur</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Path:</source>
        <translation>Chemin&#xa0;:</translation>
    </message>
    <message>
        <source>Path to the network element</source>
        <translation>Chemin vers l’élément de réseau</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Chemin</translation>
    </message>
    <message>
        <source>Host:</source>
        <translation>Hôte&#xa0;:</translation>
    </message>
    <message>
        <source>Host name or address of the node</source>
        <translation>Nom d’hôte ou adresse du nœud</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Hôte</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port&#xa0;:</translation>
    </message>
    <message>
        <source>UDP port of the node</source>
        <translation>Port UDP du nœud</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Community:</source>
        <translation>Communauté&#xa0;:</translation>
    </message>
    <message>
        <source>Community under which the node answers</source>
        <translation>Communauté sous laquelle le nœud répond</translation>
    </message>
    <message>
        <source>Community</source>
        <translation>Communauté</translation>
    </message>
    <message>
        <source>Section:</source>
        <translation>Section&#xa0;:</translation>
    </message>
    <message>
        <source>Section of the station</source>
        <translation>Section de la station</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Section</translation>
    </message>
    <message>
        <source>Station:</source>
        <translation>Station&#xa0;:</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>Station</translation>
    </message>
    <message>
        <source>Target String</source>
        <translation>Chaîne cible</translation>
    </message>
    <message>
        <source>Target:</source>
        <translation>Cible&#xa0;:</translation>
    </message>
    <message>
        <source>Target string of the selected connection or node; it can be edited</source>
        <translation>Chaîne cible de la connexion ou du nœud sélectionné&#xa0;; elle peut être modifiée</translation>
    </message>
    <message>
        <source>Target string</source>
        <translation>Chaîne cible</translation>
    </message>
    <message>
        <source>Failure to get connection data from database.</source>
        <translation>Échec de la lecture des données de la connexion dans la base de données.</translation>
    </message>
    <message>
        <source>Failure to get node data from database.</source>
        <translation>Échec de la lecture des données du nœud dans la base de données.</translation>
    </message>
    <message>
        <source>Do you want to remove Node %1 from database ?</source>
        <translation>Voulez-vous supprimer le nœud %1 de la base de données&#xa0;?</translation>
    </message>
    <message>
        <source>Failure in removing Node %1.</source>
        <translation>Échec de la suppression du nœud %1.</translation>
    </message>
    <message>
        <source>Do you want to remove Connection %1 and all its nodes from database ?</source>
        <translation>Voulez-vous supprimer la connexion %1 et tous ses nœuds de la base de données&#xa0;?</translation>
    </message>
    <message>
        <source>Failure in removing Connection %1.</source>
        <translation>Échec de la suppression de la connexion %1.</translation>
    </message>
    <message>
        <source>Nothing is selected, select a node from the tree.</source>
        <translation>Rien n’est sélectionné, sélectionnez un nœud dans l’arbre.</translation>
    </message>
    <message>
        <source>Only nodes can be used to launch a manager, select a node from the tree.</source>
        <translation>Seul un nœud permet de lancer un gestionnaire, sélectionnez un nœud dans l’arbre.</translation>
    </message>
    <message>
        <source>No database, access to database tab is denied.</source>
        <translation>Pas de base de données, l’accès à l’onglet «&#xa0;Base de données&#xa0;» est refusé.</translation>
    </message>
    <message>
        <source>Connections and nodes must be reloaded, because of changes made by another application. Automatic reload follows.</source>
        <translation>Les connexions et les nœuds doivent être rechargés, car une autre application a effectué des modifications. Le rechargement automatique suit.</translation>
    </message>
    <message>
        <source>ConvertItemListToArray Error</source>
        <translation>Erreur dans ConvertItemListToArray</translation>
    </message>
    <message>
        <source>Journal table access failure.</source>
        <translation>Échec de l’accès à la table du journal.</translation>
    </message>
    <message>
        <source>First select a connection in the connection tree.</source>
        <translation>Sélectionnez d’abord une connexion dans l’arbre des connexions.</translation>
    </message>
    <message>
        <source>First select a connection in the tree.</source>
        <translation>Sélectionnez d’abord une connexion dans l’arbre.</translation>
    </message>
    <message>
        <source>Connection name not found.</source>
        <translation>Nom de connexion introuvable.</translation>
    </message>
    <message>
        <source>%1 is not in the database any more.</source>
        <translation>%1 n’est plus dans la base de données.</translation>
    </message>
</context>
<context>
    <name>ConPropPanel</name>
    <message>
        <source>Name:</source>
        <translation>Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Connection Name</source>
        <translation>Nom de la connexion</translation>
    </message>
    <message>
        <source>Name of the connection; Esc brings the former name back</source>
        <translation>Nom de la connexion&#xa0;; Échap rétablit l’ancien nom</translation>
    </message>
    <message>
        <source>Connection type picture</source>
        <translation>Image du type de connexion</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Type&#xa0;:</translation>
    </message>
    <message>
        <source>Type of the connection; another type starts with empty parameters</source>
        <translation>Type de la connexion&#xa0;; un autre type commence avec des paramètres vides</translation>
    </message>
    <message>
        <source>Connection Type</source>
        <translation>Type de connexion</translation>
    </message>
    <message>
        <source>Definition:</source>
        <translation>Définition&#xa0;:</translation>
    </message>
    <message>
        <source>Connection Definition</source>
        <translation>Définition de la connexion</translation>
    </message>
    <message>
        <source>Show Parameters</source>
        <translation>Afficher les paramètres</translation>
    </message>
    <message>
        <source>List the parameters of each part of the connection too</source>
        <translation>Lister aussi les paramètres de chaque partie de la connexion</translation>
    </message>
    <message>
        <source>&amp;Properties</source>
        <translation>&amp;Propriétés</translation>
    </message>
    <message>
        <source>Change the parameters of the selected part of the connection</source>
        <translation>Modifier les paramètres de la partie sélectionnée de la connexion</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
</context>
<context>
    <name>ConsolePanel</name>
    <message>
        <source>Console</source>
        <translation>Console</translation>
    </message>
    <message>
        <source>Re&amp;quest:</source>
        <translation>Re&amp;quête&#xa0;:</translation>
    </message>
    <message>
        <source>Request</source>
        <translation>Requête</translation>
    </message>
    <message>
        <source>What is sent to the target; Enter sends it</source>
        <translation>Ce qui est envoyé à la cible&#xa0;; Entrée l’envoie</translation>
    </message>
    <message>
        <source>Se&amp;nd</source>
        <translation>E&amp;nvoyer</translation>
    </message>
    <message>
        <source>Open the target, if it is not open, and send it the request</source>
        <translation>Ouvrir la cible si elle ne l’est pas et lui envoyer la requête</translation>
    </message>
    <message>
        <source>State of the connection</source>
        <translation>État de la connexion</translation>
    </message>
    <message>
        <source>&amp;Disconnect</source>
        <translation>Déconnec&amp;ter</translation>
    </message>
    <message>
        <source>Close the connection, or give up waiting for the reply</source>
        <translation>Fermer la connexion ou cesser d’attendre la réponse</translation>
    </message>
    <message>
        <source>Log of the console</source>
        <translation>Journal de la console</translation>
    </message>
    <message>
        <source>What was sent (&gt;), what came (&lt;) and what failed (!)</source>
        <translation>Ce qui a été envoyé (&gt;), ce qui est arrivé (&lt;) et ce qui a échoué (!)</translation>
    </message>
    <message>
        <source>Copy Te&amp;xt</source>
        <translation>Copier le te&amp;xte</translation>
    </message>
    <message>
        <source>Copy the log</source>
        <translation>Copier le journal</translation>
    </message>
    <message>
        <source>Copy the log to the clipboard</source>
        <translation>Copier le journal dans le presse-papiers</translation>
    </message>
    <message>
        <source>Clear &amp;Text</source>
        <translation>&amp;Vider le texte</translation>
    </message>
    <message>
        <source>Clear the log</source>
        <translation>Effacer le journal</translation>
    </message>
    <message>
        <source>Empty the log</source>
        <translation>Vider le journal</translation>
    </message>
    <message>
        <source>connected to %1</source>
        <translation>connecté à %1</translation>
    </message>
    <message>
        <source>disconnected</source>
        <translation>déconnecté</translation>
    </message>
    <message>
        <source>Connecting to %1 ...</source>
        <translation>Connexion à %1 ...</translation>
    </message>
    <message>
        <source>Waiting for the reply of %1 ...</source>
        <translation>Attente de la réponse de %1 ...</translation>
    </message>
    <message>
        <source>Connected to %1.</source>
        <translation>Connecté à %1.</translation>
    </message>
    <message>
        <source>Connected to %1. The next request goes to the new target.</source>
        <translation>Connecté à %1. La prochaine requête ira à la nouvelle cible.</translation>
    </message>
    <message>
        <source>Not connected. There is no target to send a request to.</source>
        <translation>Non connecté. Il n’y a pas de cible à laquelle envoyer une requête.</translation>
    </message>
    <message>
        <source>Not connected. A request opens the target.</source>
        <translation>Non connecté. Une requête ouvre la cible.</translation>
    </message>
</context>
<context>
    <name>DatabaseClass</name>
    <message>
        <source>GetNMAInfoDb,failure to commit database operations.</source>
        <translation>GetNMAInfoDb, échec de la validation des opérations sur la base de données.</translation>
    </message>
    <message>
        <source>There is no database component.</source>
        <translation>Il n’y a pas de composant de base de données.</translation>
    </message>
    <message>
        <source>Access to HVX Database is denied, another application might be using it.</source>
        <translation>L’accès à la base de données HVX est refusé, une autre application l’utilise peut-être.</translation>
    </message>
    <message>
        <source>Failure to commit HVX Database operations.</source>
        <translation>Échec de la validation des opérations sur la base de données HVX.</translation>
    </message>
    <message>
        <source>In correct HVX Database format, at least HVX Database version 4.2 is required.</source>
        <translation>Format de base de données HVX incorrect, la version 4.2 au moins de la base de données HVX est requise.</translation>
    </message>
    <message>
        <source>Failure in a database operation and database also failed to roll back its changes. Warning, database may be corrupted.</source>
        <translation>Une opération sur la base de données a échoué et la base de données n’a pas pu annuler ses modifications. Attention, la base de données est peut-être endommagée.</translation>
    </message>
    <message>
        <source>Unknown error in access to database.</source>
        <translation>Erreur inconnue lors de l’accès à la base de données.</translation>
    </message>
    <message>
        <source>Failure in database operation. All modifications rolled back successfully.</source>
        <translation>Échec d’une opération sur la base de données. Toutes les modifications ont été annulées.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, another application has either locked the database or ODBC setting DSN=DBS32 does not exist.</source>
        <translation>Impossible d’ouvrir la base de données HVX, soit une autre application a verrouillé la base de données, soit le paramètre ODBC DSN=DBS32 n’existe pas.</translation>
    </message>
</context>
<context>
    <name>DefinitionListView</name>
    <message>
        <source>M: mandatory, D: default value in use</source>
        <translation>M&#xa0;: obligatoire, D&#xa0;: valeur par défaut utilisée</translation>
    </message>
</context>
<context>
    <name>FoundEntries</name>
    <message>
        <source>Not loaded yet</source>
        <translation>Pas encore chargé</translation>
    </message>
    <message>
        <source>There are more than %1. Search for a longer text.</source>
        <translation>Il y en a plus de %1. Cherchez un texte plus long.</translation>
    </message>
</context>
<context>
    <name>HelpBrowser</name>
    <message>
        <source>&lt;h1&gt;Not found&lt;/h1&gt;&lt;p&gt;The help has no page &quot;%1&quot;.&lt;/p&gt;</source>
        <translation>&lt;h1&gt;Introuvable&lt;/h1&gt;&lt;p&gt;L’aide n’a pas de page «&#xa0;%1&#xa0;».&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>HelpFindBar</name>
    <message>
        <source>Find in &amp;page:</source>
        <translation>Chercher dans la &amp;page&#xa0;:</translation>
    </message>
    <message>
        <source>Enter goes on, Shift+Enter goes back, Escape closes</source>
        <translation>Entrée continue, Maj+Entrée revient, Échap ferme</translation>
    </message>
    <message>
        <source>P&amp;revious</source>
        <translation>Pré&amp;cédent</translation>
    </message>
    <message>
        <source>Find the text before (Shift+F3)</source>
        <translation>Chercher le texte avant (Maj+F3)</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>Sui&amp;vant</translation>
    </message>
    <message>
        <source>Find the text again (F3)</source>
        <translation>Chercher encore le texte (F3)</translation>
    </message>
    <message>
        <source>Outcome of finding in the page</source>
        <translation>Résultat de la recherche dans la page</translation>
    </message>
    <message>
        <source>Not in this page</source>
        <translation>Pas dans cette page</translation>
    </message>
</context>
<context>
    <name>HelpSearch</name>
    <message>
        <source>Words to search for</source>
        <translation>Mots à rechercher</translation>
    </message>
    <message>
        <source>Enter searches all pages of the help</source>
        <translation>Entrée cherche dans toutes les pages de l’aide</translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation>&amp;Rechercher</translation>
    </message>
    <message>
        <source>Search all pages of the help</source>
        <translation>Chercher dans toutes les pages de l’aide</translation>
    </message>
    <message>
        <source>Outcome of the search</source>
        <translation>Résultat de la recherche</translation>
    </message>
    <message>
        <source>Pages found</source>
        <translation>Pages trouvées</translation>
    </message>
    <message>
        <source>Enter shows the page</source>
        <translation>Entrée affiche la page</translation>
    </message>
    <message>
        <source>Searching ...</source>
        <translation>Recherche ...</translation>
    </message>
    <message>
        <source>No page holds &quot;%1&quot;.</source>
        <translation>Aucune page ne contient «&#xa0;%1&#xa0;».</translation>
    </message>
    <message>
        <source>Pages found: %1</source>
        <translation>Pages trouvées&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Ways into the help</source>
        <translation>Accès à l’aide</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Sommaire</translation>
    </message>
    <message>
        <source>Inde&amp;x</source>
        <translation>Inde&amp;x</translation>
    </message>
    <message>
        <source>Keyword</source>
        <translation>Mot-clé</translation>
    </message>
    <message>
        <source>Shows the keywords that hold this text; Enter shows the page of the first</source>
        <translation>Affiche les mots-clés qui contiennent ce texte&#xa0;; Entrée affiche la page du premier</translation>
    </message>
    <message>
        <source>Se&amp;arch</source>
        <translation>Recherc&amp;he</translation>
    </message>
    <message>
        <source>Help page</source>
        <translation>Page d’aide</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Commandes</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Show the page before (Alt+Left)</source>
        <translation>Afficher la page précédente (Alt+Gauche)</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Avancer</translation>
    </message>
    <message>
        <source>Show the page that you came back from (Alt+Right)</source>
        <translation>Afficher la page d’où vous êtes revenu (Alt+Droite)</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Début</translation>
    </message>
    <message>
        <source>Show the first page (Alt+Home)</source>
        <translation>Afficher la première page (Alt+Origine)</translation>
    </message>
    <message>
        <source>Find in Page</source>
        <translation>Chercher dans la page</translation>
    </message>
    <message>
        <source>Find text in this page (Ctrl+F)</source>
        <translation>Chercher du texte dans cette page (Ctrl+F)</translation>
    </message>
    <message>
        <source>Larger</source>
        <translation>Plus grand</translation>
    </message>
    <message>
        <source>Show the text larger (Ctrl++)</source>
        <translation>Afficher le texte plus grand (Ctrl++)</translation>
    </message>
    <message>
        <source>Smaller</source>
        <translation>Plus petit</translation>
    </message>
    <message>
        <source>Show the text smaller (Ctrl+-)</source>
        <translation>Afficher le texte plus petit (Ctrl+-)</translation>
    </message>
    <message>
        <source>Normal Size</source>
        <translation>Taille normale</translation>
    </message>
    <message>
        <source>Show the text as large as that of the windows (Ctrl+0)</source>
        <translation>Afficher le texte aussi grand que dans les fenêtres (Ctrl+0)</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Sommaire</translation>
    </message>
    <message>
        <source>Keywords</source>
        <translation>Mots-clés</translation>
    </message>
    <message>
        <source>%1 is outside of this help and is not opened.</source>
        <translation>%1 est en dehors de cette aide et n’est pas ouvert.</translation>
    </message>
    <message>
        <source>%1 - Help</source>
        <translation>%1 - Aide</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>The language changes when the workstation is started again.</source>
        <translation>La langue changera au prochain démarrage de la station de travail.</translation>
    </message>
</context>
<context>
    <name>NodeDialog</name>
    <message>
        <source>&apos;New Node&apos; cannot be used as a node name, give a new name.</source>
        <translation>«&#xa0;New Node&#xa0;» ne peut pas servir de nom de nœud, donnez un autre nom.</translation>
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
        <translation>&amp;Nœud&#xa0;:</translation>
    </message>
    <message>
        <source>Node that this manager operates</source>
        <translation>Nœud que ce gestionnaire exploite</translation>
    </message>
    <message>
        <source>Node</source>
        <translation>Nœud</translation>
    </message>
    <message>
        <source>&amp;Device:</source>
        <translation>A&amp;ppareil&#xa0;:</translation>
    </message>
    <message>
        <source>Device that the manager was told</source>
        <translation>Appareil indiqué au gestionnaire</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>&amp;Arguments:</source>
        <translation>&amp;Arguments&#xa0;:</translation>
    </message>
    <message>
        <source>All arguments of the program, each on a line of its own</source>
        <translation>Tous les arguments du programme, un par ligne</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Arguments</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copy node, device and arguments to the clipboard</source>
        <translation>Copier le nœud, l’appareil et les arguments dans le presse-papiers</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Close the manager</source>
        <translation>Fermer le gestionnaire</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>NodePages</name>
    <message>
        <source>Node &amp;Definition:</source>
        <translation>&amp;Définition du nœud&#xa0;:</translation>
    </message>
    <message>
        <source>Parts of the node; the parameters of the selected one are below</source>
        <translation>Parties du nœud&#xa0;; les paramètres de la partie sélectionnée sont au-dessous</translation>
    </message>
    <message>
        <source>Node definition</source>
        <translation>Définition du nœud</translation>
    </message>
    <message>
        <source>Parameters:</source>
        <translation>Paramètres&#xa0;:</translation>
    </message>
    <message>
        <source>Type or double-click in the Value column to change a parameter</source>
        <translation>Tapez ou double-cliquez dans la colonne «&#xa0;Valeur&#xa0;» pour modifier un paramètre</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Parameter value</source>
        <translation>Valeur du paramètre</translation>
    </message>
    <message>
        <source>Parameter value from a list</source>
        <translation>Valeur du paramètre dans une liste</translation>
    </message>
    <message>
        <source>Step the parameter value</source>
        <translation>Changer la valeur du paramètre pas à pas</translation>
    </message>
</context>
<context>
    <name>ProgressForm</name>
    <message>
        <source>Do you want to interrupt database loading ?</source>
        <translation>Voulez-vous interrompre le chargement de la base de données&#xa0;?</translation>
    </message>
    <message>
        <source>Interrupt Loading</source>
        <translation>Interrompre le chargement</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>connections not loaded</source>
        <translation>connexions non chargées</translation>
    </message>
    <message>
        <source>%1 connections</source>
        <translation>%1 connexions</translation>
    </message>
    <message>
        <source>%1 nodes</source>
        <translation>%1 nœuds</translation>
    </message>
    <message>
        <source>%1 of %2 nodes</source>
        <translation>%1 nœuds sur %2</translation>
    </message>
    <message>
        <source>Loaded: %1, %2</source>
        <translation>Chargé&#xa0;: %1, %2</translation>
    </message>
    <message>
        <source>Rights: scan, change</source>
        <translation>Droits&#xa0;: balayer, modifier</translation>
    </message>
    <message>
        <source>Rights: scan</source>
        <translation>Droits&#xa0;: balayer</translation>
    </message>
    <message>
        <source>Rights: change</source>
        <translation>Droits&#xa0;: modifier</translation>
    </message>
    <message>
        <source>Rights: read only</source>
        <translation>Droits&#xa0;: lecture seule</translation>
    </message>
    <message>
        <source>Database in use</source>
        <translation>Base de données utilisée</translation>
    </message>
    <message>
        <source>When the trees were last known to be what the database holds</source>
        <translation>Dernier moment où les arbres correspondaient de façon sûre à la base de données</translation>
    </message>
    <message>
        <source>How many nodes and connections are loaded</source>
        <translation>Nombre de nœuds et de connexions chargés</translation>
    </message>
    <message>
        <source>What you may do beside looking</source>
        <translation>Ce que vous avez le droit de faire en plus de consulter</translation>
    </message>
    <message>
        <source>less than a minute ago</source>
        <translation>il y a moins d’une minute</translation>
    </message>
    <message>
        <source>%1 min ago</source>
        <translation>il y a %1 min</translation>
    </message>
    <message>
        <source>%1 h ago</source>
        <translation>il y a %1 h</translation>
    </message>
    <message>
        <source>%1 days ago</source>
        <translation>il y a %1 jour(s)</translation>
    </message>
    <message>
        <source>Cannot be read; as of %1</source>
        <translation>Lecture impossible&#xa0;; état&#xa0;: %1</translation>
    </message>
    <message>
        <source>As of %1</source>
        <translation>État&#xa0;: %1</translation>
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
        <translation>Cible pour l’application hôte</translation>
    </message>
    <message>
        <source>Target for the host</source>
        <translation>Cible pour l’application hôte</translation>
    </message>
    <message>
        <source>The target that the host got when it last asked</source>
        <translation>La cible que l’application hôte a reçue à sa dernière demande</translation>
    </message>
    <message>
        <source>Read Tar&amp;get</source>
        <translation>Li&amp;re la cible</translation>
    </message>
    <message>
        <source>Ask the browser for its target, as a host does</source>
        <translation>Demander sa cible au navigateur, comme le fait une application hôte</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>Copi&amp;er</translation>
    </message>
    <message>
        <source>Copy the target to the clipboard</source>
        <translation>Copier la cible dans le presse-papiers</translation>
    </message>
    <message>
        <source>Kind of the answer</source>
        <translation>Nature de la réponse</translation>
    </message>
    <message>
        <source>Select a connection or a node, or type a target, then read it.</source>
        <translation>Sélectionnez une connexion ou un nœud, ou tapez une cible, puis lisez-la.</translation>
    </message>
    <message>
        <source>This is what the host gets.</source>
        <translation>Voici ce que l’application hôte reçoit.</translation>
    </message>
    <message>
        <source>There is no valid target. Select a connection or a node, or correct the target.</source>
        <translation>Il n’y a pas de cible valide. Sélectionnez une connexion ou un nœud, ou corrigez la cible.</translation>
    </message>
    <message>
        <source>The target could not be checked.</source>
        <translation>La cible n’a pas pu être vérifiée.</translation>
    </message>
</context>
<context>
    <name>UpDown</name>
    <message>
        <source>Up</source>
        <translation>Augmenter</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Diminuer</translation>
    </message>
</context>
<context>
    <name>Words</name>
    <message>
        <source>(Major code = %1, Minor code = %2)</source>
        <translation>(Code majeur = %1, code mineur = %2)</translation>
    </message>
    <message>
        <source>Component %1 cannot be created.</source>
        <translation>Le composant %1 ne peut pas être créé.</translation>
    </message>
    <message>
        <source>Component %1 is not registered.</source>
        <translation>Le composant %1 n’est pas enregistré.</translation>
    </message>
    <message>
        <source>%1 - Error</source>
        <translation>%1 - Erreur</translation>
    </message>
    <message>
        <source>Error: Unknown node type.</source>
        <translation>Erreur&#xa0;: type de nœud inconnu.</translation>
    </message>
    <message>
        <source>Unknown parameter:%1</source>
        <translation>Paramètre inconnu&#xa0;: %1</translation>
    </message>
    <message>
        <source>Failure to get node data from database.</source>
        <translation>Échec de la lecture des données du nœud dans la base de données.</translation>
    </message>
    <message>
        <source>Mandatory and mutually exclusive parameters are set incorrectly (check parameters with bold and italic font).</source>
        <translation>Des paramètres obligatoires qui s’excluent mutuellement sont mal définis (vérifiez les paramètres en gras et italique).</translation>
    </message>
    <message>
        <source>Mandatory parameter without value (check parameter names with bold font).</source>
        <translation>Paramètre obligatoire sans valeur (vérifiez les noms de paramètres en gras).</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Paramètre</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>%1-waypoint parameters:</source>
        <translation>Paramètres du point de passage %1&#xa0;:</translation>
    </message>
    <message>
        <source>Connection Definition</source>
        <translation>Définition de la connexion</translation>
    </message>
    <message>
        <source>M/D</source>
        <translation>M/D</translation>
    </message>
    <message>
        <source>Connection %1 already exists. Give a new name.</source>
        <translation>La connexion %1 existe déjà. Donnez un autre nom.</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Connection %1 exists in database. Do you want to replace it ?</source>
        <translation>La connexion %1 existe dans la base de données. Voulez-vous la remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Replace Connection</source>
        <translation>Remplacer la connexion</translation>
    </message>
    <message>
        <source>Node name %1 already exists in the database. No saving, because connections and nodes cannot share the same name.</source>
        <translation>Le nom de nœud %1 existe déjà dans la base de données. Pas d’enregistrement, car les connexions et les nœuds ne peuvent pas porter le même nom.</translation>
    </message>
    <message>
        <source>Save is prevented, because another application has changed this connection. Close dialog and try again.</source>
        <translation>L’enregistrement est impossible, car une autre application a modifié cette connexion. Fermez la boîte de dialogue et réessayez.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because upgrading it to latest format failed.</source>
        <translation>Impossible d’ouvrir la base de données HVX, car sa mise à niveau au format le plus récent a échoué.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because the database file (Dbs.mdb) is missing or ODBC DSN DBS32 is not set to the database.</source>
        <translation>Impossible d’ouvrir la base de données HVX, car le fichier de base de données (Dbs.mdb) est absent ou le DSN ODBC DBS32 ne désigne pas la base de données.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because of CAM access error.</source>
        <translation>Impossible d’ouvrir la base de données HVX à cause d’une erreur d’accès CAM.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because the database file (Dbs.mdb) is in read-only mode.</source>
        <translation>Impossible d’ouvrir la base de données HVX, car le fichier de base de données (Dbs.mdb) est en lecture seule.</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because the database file (Dbs.mdb) is missing one or more tables.</source>
        <translation>Impossible d’ouvrir la base de données HVX, car il manque une ou plusieurs tables dans le fichier de base de données (Dbs.mdb).</translation>
    </message>
    <message>
        <source>Unable to open HVX Database, because of unknown table problem in the database file (Dbs.mdb).</source>
        <translation>Impossible d’ouvrir la base de données HVX à cause d’un problème de table inconnu dans le fichier de base de données (Dbs.mdb).</translation>
    </message>
    <message>
        <source>Database access is denied, because another application is using it.</source>
        <translation>L’accès à la base de données est refusé, car une autre application l’utilise.</translation>
    </message>
    <message>
        <source>Failure to commit database operations.</source>
        <translation>Échec de la validation des opérations sur la base de données.</translation>
    </message>
    <message>
        <source>Failure to roll back database changes. Warning, database may be corrupted.</source>
        <translation>Échec de l’annulation des modifications de la base de données. Attention, la base de données est peut-être endommagée.</translation>
    </message>
    <message>
        <source>Database is in use by another application, do you want to try again ?</source>
        <translation>La base de données est utilisée par une autre application, voulez-vous réessayer&#xa0;?</translation>
    </message>
    <message>
        <source>Database sharing problem</source>
        <translation>Problème de partage de la base de données</translation>
    </message>
    <message>
        <source>Database search error.</source>
        <translation>Erreur de recherche dans la base de données.</translation>
    </message>
    <message>
        <source>Error in connection database saving.</source>
        <translation>Erreur lors de l’enregistrement de la connexion dans la base de données.</translation>
    </message>
    <message>
        <source>Connection %1 is deleted from database by another application. Nodes cannot be saved without connection. Select another connection and scan again.</source>
        <translation>La connexion %1 a été supprimée de la base de données par une autre application. Les nœuds ne peuvent pas être enregistrés sans connexion. Sélectionnez une autre connexion et relancez le balayage.</translation>
    </message>
    <message>
        <source>Connection %1 is changed by another application. Nodes cannot be saved without connection. Select another connection and scan again.</source>
        <translation>La connexion %1 a été modifiée par une autre application. Les nœuds ne peuvent pas être enregistrés sans connexion. Sélectionnez une autre connexion et relancez le balayage.</translation>
    </message>
    <message>
        <source>Connection %1 exists in database. Do you want to replace it?</source>
        <translation>La connexion %1 existe dans la base de données. Voulez-vous la remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Connection and node saving canceled.</source>
        <translation>Enregistrement de la connexion et du nœud annulé.</translation>
    </message>
    <message>
        <source>Missing Device Name, manager cannot be launched.</source>
        <translation>Nom d’appareil absent, le gestionnaire ne peut pas être lancé.</translation>
    </message>
    <message>
        <source>Device Name %1 not found, manager cannot be launched.</source>
        <translation>Nom d’appareil %1 introuvable, le gestionnaire ne peut pas être lancé.</translation>
    </message>
    <message>
        <source>Manager Launch Error with Command Line:%1</source>
        <translation>Erreur de lancement du gestionnaire avec la ligne de commande&#xa0;: %1</translation>
    </message>
    <message>
        <source>Failure in removing Node %1.</source>
        <translation>Échec de la suppression du nœud %1.</translation>
    </message>
    <message>
        <source>Give node name.</source>
        <translation>Donnez le nom du nœud.</translation>
    </message>
    <message>
        <source>T4 Node mandatory parameter without value (check parameter names with bold font).</source>
        <translation>Paramètre obligatoire du nœud T4 sans valeur (vérifiez les noms de paramètres en gras).</translation>
    </message>
    <message>
        <source>Node name %1 already exists in the database. No saving, because nodes and connections cannot share the same name.</source>
        <translation>Le nom de nœud %1 existe déjà dans la base de données. Pas d’enregistrement, car les nœuds et les connexions ne peuvent pas porter le même nom.</translation>
    </message>
    <message>
        <source>Node %1 exists in database. Do you want to replace it ?</source>
        <translation>Le nœud %1 existe dans la base de données. Voulez-vous le remplacer&#xa0;?</translation>
    </message>
    <message>
        <source>Replace Node</source>
        <translation>Remplacer le nœud</translation>
    </message>
    <message>
        <source>Save is prevented, because another application has changed this node. Close dialog and try again.</source>
        <translation>L’enregistrement est impossible, car une autre application a modifié ce nœud. Fermez la boîte de dialogue et réessayez.</translation>
    </message>
    <message>
        <source>Manager index doesn&apos;t exist.</source>
        <translation>L’index du gestionnaire n’existe pas.</translation>
    </message>
    <message>
        <source>Database error, Node ID missing.</source>
        <translation>Erreur de base de données, ID du nœud absent.</translation>
    </message>
    <message>
        <source>No saving, because of an error in waypoint parameters or mandatory waypoint is missing all its parameters.</source>
        <translation>Pas d’enregistrement, à cause d’une erreur dans les paramètres des points de passage ou parce qu’un point de passage obligatoire n’a aucun paramètre.</translation>
    </message>
    <message>
        <source>Error with HVX component</source>
        <translation>Erreur d’un composant HVX</translation>
    </message>
    <message>
        <source>Database error, Connection ID missing.</source>
        <translation>Erreur de base de données, ID de la connexion absent.</translation>
    </message>
    <message>
        <source>Node %1 not found from database.</source>
        <translation>Nœud %1 introuvable dans la base de données.</translation>
    </message>
    <message>
        <source>Failure in saving node %1 into database.</source>
        <translation>Échec de l’enregistrement du nœud %1 dans la base de données.</translation>
    </message>
    <message>
        <source>Error: Connection name is empty.</source>
        <translation>Erreur&#xa0;: le nom de la connexion est vide.</translation>
    </message>
    <message>
        <source>Error: Database search error.</source>
        <translation>Erreur&#xa0;: échec de la recherche dans la base de données.</translation>
    </message>
    <message>
        <source>Error: Connection name %1 alredy exists in database.</source>
        <translation>Erreur&#xa0;: le nom de connexion %1 existe déjà dans la base de données.</translation>
    </message>
    <message>
        <source>Database error, failure in SaveParent.</source>
        <translation>Erreur de base de données, échec de SaveParent.</translation>
    </message>
    <message>
        <source>Node name is empty.</source>
        <translation>Le nom du nœud est vide.</translation>
    </message>
    <message>
        <source>Node %1 already exists. Give a new name.</source>
        <translation>Le nœud %1 existe déjà. Donnez un autre nom.</translation>
    </message>
    <message>
        <source>Failure in database search.</source>
        <translation>Échec de la recherche dans la base de données.</translation>
    </message>
    <message>
        <source>&apos;New Connection&apos; cannot be used as a connection name, give a new name.</source>
        <translation>«&#xa0;New Connection&#xa0;» ne peut pas servir de nom de connexion, donnez un autre nom.</translation>
    </message>
    <message>
        <source>Failure to get connection data from database.</source>
        <translation>Échec de la lecture des données de la connexion dans la base de données.</translation>
    </message>
    <message>
        <source>Nodes count for connection %1failed. Close the dialog and try again. </source>
        <translation>Échec du comptage des nœuds de la connexion %1. Fermez la boîte de dialogue et réessayez. </translation>
    </message>
    <message>
        <source>Connection type cannot be changed, because the %1 connection already has node(s).</source>
        <translation>Le type de connexion ne peut pas être modifié, car la connexion %1 a déjà un ou plusieurs nœuds.</translation>
    </message>
    <message>
        <source>%1 cannot be used, because the connection already has node(s).</source>
        <translation>%1 ne peut pas être utilisé, car la connexion a déjà un ou plusieurs nœuds.</translation>
    </message>
    <message>
        <source>%1 cannot be used as a connection type for the scanned nodes.</source>
        <translation>%1 ne peut pas servir de type de connexion pour les nœuds trouvés par balayage.</translation>
    </message>
    <message>
        <source>Select connection part name or parameter from the listbox.</source>
        <translation>Sélectionnez une partie de la connexion ou un paramètre dans la liste.</translation>
    </message>
    <message>
        <source>Database is empty. In addition, before a node can be defined there must be at least one connection in the database.</source>
        <translation>La base de données est vide. De plus, avant de définir un nœud, il faut au moins une connexion dans la base de données.</translation>
    </message>
    <message>
        <source>Connection Type: %1</source>
        <translation>Type de connexion&#xa0;: %1</translation>
    </message>
    <message>
        <source>Give Connection Name.</source>
        <translation>Donnez le nom de la connexion.</translation>
    </message>
    <message>
        <source>Error in waypoint parameters or mandatory waypoint is missing all its parameters.</source>
        <translation>Erreur dans les paramètres des points de passage, ou un point de passage obligatoire n’a aucun paramètre.</translation>
    </message>
    <message>
        <source>%1 Parameters</source>
        <translation>Paramètres de %1</translation>
    </message>
    <message>
        <source>One of several parameters that exclude each other</source>
        <translation>L’un de plusieurs paramètres qui s’excluent mutuellement</translation>
    </message>
    <message>
        <source>Mandatory parameter</source>
        <translation>Paramètre obligatoire</translation>
    </message>
    <message>
        <source>Default (%1)</source>
        <translation>Par défaut (%1)</translation>
    </message>
    <message>
        <source>No value</source>
        <translation>Aucune valeur</translation>
    </message>
    <message>
        <source>Value %1 out of range [%2,%3]. Give a new value.</source>
        <translation>La valeur %1 est hors de l’intervalle [%2,%3]. Donnez une autre valeur.</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Identification</source>
        <translation>Identification</translation>
    </message>
    <message>
        <source>no answer</source>
        <translation>pas de réponse</translation>
    </message>
    <message>
        <source>Scanning ...</source>
        <translation>Balayage ...</translation>
    </message>
    <message>
        <source>No Bus found</source>
        <translation>Aucun bus trouvé</translation>
    </message>
    <message>
        <source>No bus selected.</source>
        <translation>Aucun bus sélectionné.</translation>
    </message>
    <message>
        <source>Buses could not be scanned.</source>
        <translation>Les bus n’ont pas pu être balayés.</translation>
    </message>
    <message>
        <source>HVXSyncConn component creation failure</source>
        <translation>Échec de la création du composant HVXSyncConn</translation>
    </message>
    <message>
        <source>HVXUtility component creation failure</source>
        <translation>Échec de la création du composant HVXUtility</translation>
    </message>
    <message>
        <source>Scan failed due to component HVXSyncConn or HVXUtility.</source>
        <translation>Le balayage a échoué à cause du composant HVXSyncConn ou HVXUtility.</translation>
    </message>
    <message>
        <source>Bus scanning failed, because of missing components (either HVXSyncConn or HVXUtility is missing).</source>
        <translation>Le balayage des bus a échoué, car il manque des composants (HVXSyncConn ou HVXUtility).</translation>
    </message>
    <message>
        <source>Database error, connection to database broken.</source>
        <translation>Erreur de base de données, la connexion à la base de données est rompue.</translation>
    </message>
    <message>
        <source>Nothing is selectd. Select node(s) from the above listbox.</source>
        <translation>Rien n’est sélectionné. Sélectionnez un ou plusieurs nœuds dans la liste ci-dessus.</translation>
    </message>
    <message>
        <source>Rename Node</source>
        <translation>Renommer le nœud</translation>
    </message>
    <message>
        <source>Invalid characters in node name.</source>
        <translation>Caractères non valides dans le nom du nœud.</translation>
    </message>
    <message>
        <source>Node name &apos;New Node&apos; cannot be used as a node name.</source>
        <translation>Le nom «&#xa0;New Node&#xa0;» ne peut pas servir de nom de nœud.</translation>
    </message>
    <message>
        <source>Rename Node %1 (at address %2).</source>
        <translation>Renommer le nœud %1 (à l’adresse %2).</translation>
    </message>
    <message>
        <source>Node name &quot;%1&quot; length is %2 characters, %3 is allowed maximum length.</source>
        <translation>Le nom de nœud «&#xa0;%1&#xa0;» compte %2 caractères, la longueur maximale permise est %3.</translation>
    </message>
    <message>
        <source>Connection name %1 already exists in the database. Give a new name, because nodes and connections cannot share the same name.</source>
        <translation>Le nom de connexion %1 existe déjà dans la base de données. Donnez un autre nom, car les nœuds et les connexions ne peuvent pas porter le même nom.</translation>
    </message>
    <message>
        <source>%1 of %2 nodes are saved. Do you want to interrupt nodes saving to database ?</source>
        <translation>%1 nœuds sur %2 sont enregistrés. Voulez-vous interrompre l’enregistrement des nœuds dans la base de données&#xa0;?</translation>
    </message>
    <message>
        <source>Node type NET4 not found.</source>
        <translation>Type de nœud NET4 introuvable.</translation>
    </message>
    <message>
        <source>Unknown node type:%1</source>
        <translation>Type de nœud inconnu&#xa0;: %1</translation>
    </message>
    <message>
        <source>Node saving is prevented, because another application has changed (deleted) connection %1.</source>
        <translation>L’enregistrement du nœud est impossible, car une autre application a modifié (supprimé) la connexion %1.</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>The nodes list is empty. First scan network and then save the found nodes.</source>
        <translation>La liste des nœuds est vide. Balayez d’abord le réseau, puis enregistrez les nœuds trouvés.</translation>
    </message>
    <message>
        <source>Connection used in scanning must be saved before the found nodes can be saved.</source>
        <translation>La connexion utilisée pour le balayage doit être enregistrée avant que les nœuds trouvés puissent l’être.</translation>
    </message>
    <message>
        <source>Another application has changed the scanned connection in the database. It must be saved before the found nodes can be saved.</source>
        <translation>Une autre application a modifié la connexion balayée dans la base de données. Elle doit être enregistrée avant que les nœuds trouvés puissent l’être.</translation>
    </message>
    <message>
        <source>S&amp;tart</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop ...</source>
        <translation>Arrêter ...</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Progression du balayage</translation>
    </message>
    <message>
        <source>Scanning %1</source>
        <translation>Balayage de %1</translation>
    </message>
    <message>
        <source>Scan %1</source>
        <translation>Balayage %1</translation>
    </message>
    <message>
        <source>Give scan address range.</source>
        <translation>Donnez la plage d’adresses du balayage.</translation>
    </message>
    <message>
        <source>Timing retries is out of range, allowd values are from %1 to %2.</source>
        <translation>Le nombre de répétitions est hors limites, les valeurs permises vont de %1 à %2.</translation>
    </message>
    <message>
        <source>Timing time-out is out of range, allowd values are from %1 to %2.</source>
        <translation>Le délai est hors limites, les valeurs permises vont de %1 à %2.</translation>
    </message>
    <message>
        <source>Address range end value must be equal or greater than the begin value.</source>
        <translation>La fin de la plage d’adresses doit être égale ou supérieure au début.</translation>
    </message>
    <message>
        <source>The accepted address range for the scan is from 0 to %1</source>
        <translation>La plage d’adresses acceptée pour le balayage va de 0 à %1</translation>
    </message>
    <message>
        <source>Bus Number maximum value is %1.</source>
        <translation>Le numéro de bus maximal est %1.</translation>
    </message>
    <message>
        <source>Error in bus setting.</source>
        <translation>Erreur dans le réglage du bus.</translation>
    </message>
    <message>
        <source>Nothing selected.</source>
        <translation>Rien n’est sélectionné.</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Balayage</translation>
    </message>
    <message>
        <source>No nodes were found in the scan.</source>
        <translation>Le balayage n’a trouvé aucun nœud.</translation>
    </message>
    <message>
        <source>Probably HVX installation is defective or some required components are missing.</source>
        <translation>L’installation HVX est probablement défectueuse ou certains composants requis sont absents.</translation>
    </message>
    <message>
        <source>Connection could not be opened.</source>
        <translation>La connexion n’a pas pu être ouverte.</translation>
    </message>
    <message>
        <source>Zelka HVX Service error, it is not runnig.</source>
        <translation>Erreur du service Zelka HVX, il n’est pas en cours d’exécution.</translation>
    </message>
    <message>
        <source>The database cannot be read now.</source>
        <translation>La base de données ne peut pas être lue actuellement.</translation>
    </message>
    <message>
        <source>As of %1; the database cannot be read now.</source>
        <translation>État de %1&#xa0;; la base de données ne peut pas être lue actuellement.</translation>
    </message>
    <message>
        <source>Connections</source>
        <translation>Connexions</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>Nœuds</translation>
    </message>
    <message>
        <source>Failure to set connection data.</source>
        <translation>Échec de la définition des données de la connexion.</translation>
    </message>
    <message>
        <source>Error in access to Journal table.</source>
        <translation>Erreur d’accès à la table du journal.</translation>
    </message>
    <message>
        <source>Browser refresh error, incorrect value as reference to Journal table.</source>
        <translation>Erreur d’actualisation du navigateur, valeur incorrecte de la référence à la table du journal.</translation>
    </message>
    <message>
        <source>Error in item list conversion.</source>
        <translation>Erreur de conversion d’une liste d’éléments.</translation>
    </message>
    <message>
        <source>Error in Journal table cleaning, in database method JournalClearByRecordLimit.</source>
        <translation>Erreur de nettoyage de la table du journal, dans la méthode JournalClearByRecordLimit de la base de données.</translation>
    </message>
    <message>
        <source>Database loading failure.</source>
        <translation>Échec du chargement de la base de données.</translation>
    </message>
    <message>
        <source>Failure in database operation. All modifications rolled back successfully.</source>
        <translation>Échec d’une opération sur la base de données. Toutes les modifications ont été annulées.</translation>
    </message>
    <message>
        <source>Failure in a database operation and database also failed to roll back its changes. Warning, database may be corrupted.</source>
        <translation>Une opération sur la base de données a échoué et la base de données n’a pas pu annuler ses modifications. Attention, la base de données est peut-être endommagée.</translation>
    </message>
    <message>
        <source>Loading Nodes.</source>
        <translation>Chargement des nœuds.</translation>
    </message>
    <message>
        <source>Opening Database.</source>
        <translation>Ouverture de la base de données.</translation>
    </message>
    <message>
        <source>Checking security options.</source>
        <translation>Vérification des options de sécurité.</translation>
    </message>
    <message>
        <source>Reading journal table.</source>
        <translation>Lecture de la table du journal.</translation>
    </message>
    <message>
        <source>Failure in fetching RMX/30 privileges.</source>
        <translation>Échec de la lecture des privilèges RMX/30.</translation>
    </message>
    <message>
        <source>Journal table access failure.</source>
        <translation>Échec de l’accès à la table du journal.</translation>
    </message>
    <message>
        <source>Automatic update follows, try again.</source>
        <translation>La mise à jour automatique suit, réessayez.</translation>
    </message>
    <message>
        <source>Connection %1 cannot be accessed, because another application has changed it. Automatic update follows, try again.</source>
        <translation>La connexion %1 n’est pas accessible, car une autre application l’a modifiée. La mise à jour automatique suit, réessayez.</translation>
    </message>
    <message>
        <source>Node %1 cannot be accessed, because another application has changed it. Automatic update follows, try again.</source>
        <translation>Le nœud %1 n’est pas accessible, car une autre application l’a modifié. La mise à jour automatique suit, réessayez.</translation>
    </message>
    <message>
        <source>Missing connection index.</source>
        <translation>Index de connexion absent.</translation>
    </message>
    <message>
        <source>Missing node index.</source>
        <translation>Index de nœud absent.</translation>
    </message>
    <message>
        <source>A request is under way already.</source>
        <translation>Une requête est déjà en cours.</translation>
    </message>
    <message>
        <source>identification</source>
        <translation>identification</translation>
    </message>
    <message>
        <source>type</source>
        <translation>type</translation>
    </message>
    <message>
        <source>The help file %1 cannot be used.</source>
        <translation>Le fichier d’aide %1 n’est pas utilisable.</translation>
    </message>
    <message>
        <source>There is no room for the help: %1</source>
        <translation>Il n’y a pas de place pour l’aide&#xa0;: %1</translation>
    </message>
    <message>
        <source>No database is open.</source>
        <translation>Aucune base de données n’est ouverte.</translation>
    </message>
    <message>
        <source>You have no right to change the database.</source>
        <translation>Vous n’avez pas le droit de modifier la base de données.</translation>
    </message>
    <message>
        <source>You have no right to scan.</source>
        <translation>Vous n’avez pas le droit de balayer.</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Rien n’est sélectionné.</translation>
    </message>
    <message>
        <source>Select a connection or a node; this is the root of all.</source>
        <translation>Sélectionnez une connexion ou un nœud&#xa0;; ceci est la racine de tout.</translation>
    </message>
    <message>
        <source>A waypoint is selected; select its connection.</source>
        <translation>Un point de passage est sélectionné&#xa0;; sélectionnez sa connexion.</translation>
    </message>
    <message>
        <source>A node is selected; select its connection.</source>
        <translation>Un nœud est sélectionné&#xa0;; sélectionnez sa connexion.</translation>
    </message>
    <message>
        <source>Nothing is added below a node; select a connection, or turn to the nodes.</source>
        <translation>Rien ne s’ajoute sous un nœud&#xa0;; sélectionnez une connexion ou passez aux nœuds.</translation>
    </message>
    <message>
        <source>Select a connection.</source>
        <translation>Sélectionnez une connexion.</translation>
    </message>
    <message>
        <source>Connections are scanned; turn to the connections.</source>
        <translation>Ce sont les connexions qui se balaient&#xa0;; passez aux connexions.</translation>
    </message>
    <message>
        <source>The connection reaches its node by SNMP; there is nothing to scan.</source>
        <translation>La connexion joint son nœud par SNMP&#xa0;; il n’y a rien à balayer.</translation>
    </message>
    <message>
        <source>Only a connection that reaches its node by SNMP uses this.</source>
        <translation>Seule une connexion qui joint son nœud par SNMP utilise ceci.</translation>
    </message>
    <message>
        <source>The connections show their waypoints; choose View Nodes.</source>
        <translation>Les connexions affichent leurs points de passage&#xa0;; choisissez «&#xa0;Afficher les nœuds&#xa0;».</translation>
    </message>
    <message>
        <source>Select a node.</source>
        <translation>Sélectionnez un nœud.</translation>
    </message>
    <message>
        <source>No manager is known for this node.</source>
        <translation>Aucun gestionnaire n’est connu pour ce nœud.</translation>
    </message>
    <message>
        <source>All nodes are loaded.</source>
        <translation>Tous les nœuds sont chargés.</translation>
    </message>
    <message>
        <source>The connection has no more nodes.</source>
        <translation>La connexion n’a pas d’autres nœuds.</translation>
    </message>
    <message>
        <source>No connection is chosen.</source>
        <translation>Aucune connexion n’est choisie.</translation>
    </message>
    <message>
        <source>The scan runs; stop it first.</source>
        <translation>Le balayage est en cours&#xa0;; arrêtez-le d’abord.</translation>
    </message>
    <message>
        <source>No nodes have been found yet.</source>
        <translation>Aucun nœud n’a encore été trouvé.</translation>
    </message>
    <message>
        <source>Select a found node.</source>
        <translation>Sélectionnez un nœud trouvé.</translation>
    </message>
    <message>
        <source>The connection has no bus to choose.</source>
        <translation>La connexion n’a pas de bus à choisir.</translation>
    </message>
    <message>
        <source>Select a bus.</source>
        <translation>Sélectionnez un bus.</translation>
    </message>
    <message>
        <source>The list is empty.</source>
        <translation>La liste est vide.</translation>
    </message>
    <message>
        <source>Select one or more nodes of the list.</source>
        <translation>Sélectionnez un ou plusieurs nœuds de la liste.</translation>
    </message>
    <message>
        <source>A selected name is too long; rename it.</source>
        <translation>Un nom sélectionné est trop long&#xa0;; renommez le nœud.</translation>
    </message>
    <message>
        <source>A selected name exists already; rename it, or replace the stored node.</source>
        <translation>Un nom sélectionné existe déjà&#xa0;; renommez le nœud ou remplacez celui qui est enregistré.</translation>
    </message>
    <message>
        <source>Nothing has been changed.</source>
        <translation>Rien n’a été modifié.</translation>
    </message>
    <message>
        <source>A node that is reached by SNMP has no manager.</source>
        <translation>Un nœud joint par SNMP n’a pas de gestionnaire.</translation>
    </message>
    <message>
        <source>There is no target.</source>
        <translation>Il n’y a pas de cible.</translation>
    </message>
    <message>
        <source>Type a request.</source>
        <translation>Tapez une requête.</translation>
    </message>
    <message>
        <source>A reply is still waited for.</source>
        <translation>Une réponse est encore attendue.</translation>
    </message>
    <message>
        <source>There is no connection.</source>
        <translation>Il n’y a pas de connexion.</translation>
    </message>
    <message>
        <source>Select a found node first.</source>
        <translation>Sélectionnez d’abord un nœud trouvé.</translation>
    </message>
    <message>
        <source>&amp;Copy Address</source>
        <translation>C&amp;opier l’adresse</translation>
    </message>
    <message>
        <source>Copy &amp;Identification</source>
        <translation>Copier l’identi&amp;fication</translation>
    </message>
    <message>
        <source>Copy Ta&amp;rget</source>
        <translation>Copier la cib&amp;le</translation>
    </message>
    <message>
        <source>A target begins with &quot;WP=&quot; and the name of a waypoint.</source>
        <translation>Une chaîne cible commence par «&#xa0;WP=&#xa0;» et le nom d’un point de passage.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no &quot;=&quot;. Items are written as keyword=value, with commas between them.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas de «&#xa0;=&#xa0;». Les éléments s’écrivent mot-clé=valeur et se séparent par des virgules.</translation>
    </message>
    <message>
        <source>The target has no items, only commas.</source>
        <translation>La chaîne cible n’a pas d’éléments, seulement des virgules.</translation>
    </message>
    <message>
        <source>Copy &amp;Name</source>
        <translation>Copier le &amp;nom</translation>
    </message>
    <message>
        <source>Select a connection or a node first.</source>
        <translation>Sélectionnez d’abord une connexion ou un nœud.</translation>
    </message>
    <message>
        <source>Copy &amp;Target</source>
        <translation>Copier la cib&amp;le</translation>
    </message>
    <message>
        <source>The target has no address.</source>
        <translation>La cible n’a pas d’adresse.</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Rechercher...</translation>
    </message>
    <message>
        <source>No Version Info available!</source>
        <translation>Aucune information de version disponible&#xa0;!</translation>
    </message>
    <message>
        <source>%1 debug</source>
        <translation>%1 débogage</translation>
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
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>Sett&amp;ings</source>
        <translation>Para&amp;mètres</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Refresh &amp;Automatically</source>
        <translation>Actualiser &amp;automatiquement</translation>
    </message>
    <message>
        <source>Show &amp;Refresh Button</source>
        <translation>Afficher le bouton «&#xa0;Act&amp;ualiser&#xa0;»</translation>
    </message>
    <message>
        <source>Show &amp;Manage Button</source>
        <translation>Afficher le bouton «&#xa0;&amp;Gérer&#xa0;»</translation>
    </message>
    <message>
        <source>Open on the &amp;Direct Tab</source>
        <translation>Ouvrir sur l’onglet «&#xa0;&amp;Direct&#xa0;»</translation>
    </message>
    <message>
        <source>&amp;About...</source>
        <translation>À &amp;propos...</translation>
    </message>
    <message>
        <source>%1 - Zelka Workstation</source>
        <translation>%1 - Zelka Workstation</translation>
    </message>
    <message>
        <source>No database, direct targets only</source>
        <translation>Pas de base de données, cibles directes seulement</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Langue</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Sommaire</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>The &amp;Workstation</source>
        <translation>La s&amp;tation de travail</translation>
    </message>
    <message>
        <source>&amp;Database Tab</source>
        <translation>Onglet «&#xa0;&amp;Base de données&#xa0;»</translation>
    </message>
    <message>
        <source>Di&amp;rect Tab</source>
        <translation>Onglet «&#xa0;Di&amp;rect&#xa0;»</translation>
    </message>
    <message>
        <source>&amp;Finding Entries</source>
        <translation>Recherche d’&amp;entrées</translation>
    </message>
    <message>
        <source>&amp;Other Workstations</source>
        <translation>&amp;Autres stations de travail</translation>
    </message>
    <message>
        <source>&amp;Keyboard</source>
        <translation>&amp;Clavier</translation>
    </message>
    <message>
        <source>&amp;Messages</source>
        <translation>&amp;Messages</translation>
    </message>
    <message>
        <source>Command &amp;Line</source>
        <translation>&amp;Ligne de commande</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Affic&amp;hage</translation>
    </message>
    <message>
        <source>Colours of the &amp;System</source>
        <translation>Couleurs du &amp;système</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Clair</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>S&amp;ombre</translation>
    </message>
    <message>
        <source>High &amp;Contrast</source>
        <translation>Contraste éle&amp;vé</translation>
    </message>
    <message>
        <source>Status Li&amp;ne</source>
        <translation>&amp;Ligne d’état</translation>
    </message>
</context>
<context>
    <name>frmAbout</name>
    <message>
        <source>About Zelka Workstation</source>
        <translation>À propos de Zelka Workstation</translation>
    </message>
    <message>
        <source>Picture of the application</source>
        <translation>Image de l’application</translation>
    </message>
    <message>
        <source>Zelka Workstation</source>
        <translation>Zelka Workstation</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Version&#xa0;:</translation>
    </message>
    <message>
        <source>Qt:</source>
        <translation>Qt&#xa0;:</translation>
    </message>
    <message>
        <source>Database:</source>
        <translation>Base de données&#xa0;:</translation>
    </message>
    <message>
        <source>Database in use</source>
        <translation>Base de données utilisée</translation>
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
        <translation>Quelle version du contrôle est enregistrée</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Fermer cette fenêtre</translation>
    </message>
</context>
<context>
    <name>frmBusSelection</name>
    <message>
        <source>Scan: Found Buses</source>
        <translation>Balayage&#xa0;: bus trouvés</translation>
    </message>
    <message>
        <source>Select Bus for Scanning:</source>
        <translation>Sélectionnez le bus à balayer&#xa0;:</translation>
    </message>
    <message>
        <source>Buses that the far end of the connection serves</source>
        <translation>Bus desservis par l’extrémité distante de la connexion</translation>
    </message>
    <message>
        <source>Buses</source>
        <translation>Bus</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Scan the selected bus</source>
        <translation>Balayer le bus sélectionné</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Keep the bus as it is</source>
        <translation>Garder le bus tel quel</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmChSelPktSize</name>
    <message>
        <source>FE CHANNEL and PACKET SIZE</source>
        <translation>FE CHANNEL et PACKET SIZE</translation>
    </message>
    <message>
        <source>The FE CHANNEL and PACKET SIZE should be matched. For more details please click &quot;Help&quot; button.</source>
        <translation>FE CHANNEL et PACKET SIZE doivent correspondre. Pour plus de détails, cliquez sur le bouton «&#xa0;Aide&#xa0;».</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Close this window and go on with the node</source>
        <translation>Fermer cette fenêtre et continuer avec le nœud</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show which packet size belongs to which channel (F1)</source>
        <translation>Afficher quelle taille de paquet correspond à quel canal (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmConNodesProgress</name>
    <message>
        <source>Database Loading</source>
        <translation>Chargement de la base de données</translation>
    </message>
    <message>
        <source>Database loading in progress.</source>
        <translation>Chargement de la base de données en cours.</translation>
    </message>
    <message>
        <source>Loading progress</source>
        <translation>Progression du chargement</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Interrupt the loading; what is loaded stays</source>
        <translation>Interrompre le chargement&#xa0;; ce qui est chargé reste</translation>
    </message>
</context>
<context>
    <name>frmDatabaseConProp</name>
    <message>
        <source>Connection Properties</source>
        <translation>Propriétés de la connexion</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save the connection to the database</source>
        <translation>Enregistrer la connexion dans la base de données</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmDatabaseNodeProp</name>
    <message>
        <source>Node Properties</source>
        <translation>Propriétés du nœud</translation>
    </message>
    <message>
        <source>Connection type picture</source>
        <translation>Image du type de connexion</translation>
    </message>
    <message>
        <source>&amp;Node Name:</source>
        <translation>&amp;Nom du nœud&#xa0;:</translation>
    </message>
    <message>
        <source>Node Name</source>
        <translation>Nom du nœud</translation>
    </message>
    <message>
        <source>Name of the node; Esc brings the former name back</source>
        <translation>Nom du nœud&#xa0;; Échap rétablit l’ancien nom</translation>
    </message>
    <message>
        <source>Node name</source>
        <translation>Nom du nœud</translation>
    </message>
    <message>
        <source>C&amp;onnection Name:</source>
        <translation>N&amp;om de la connexion&#xa0;:</translation>
    </message>
    <message>
        <source>Connection over which the node is reached</source>
        <translation>Connexion par laquelle le nœud est joint</translation>
    </message>
    <message>
        <source>Connection name</source>
        <translation>Nom de la connexion</translation>
    </message>
    <message>
        <source>Connection Type:</source>
        <translation>Type de connexion&#xa0;:</translation>
    </message>
    <message>
        <source>Node C&amp;lass:</source>
        <translation>C&amp;lasse du nœud&#xa0;:</translation>
    </message>
    <message>
        <source>Class of the node; another class discards the parameters</source>
        <translation>Classe du nœud&#xa0;; une autre classe abandonne les paramètres</translation>
    </message>
    <message>
        <source>Node class</source>
        <translation>Classe du nœud</translation>
    </message>
    <message>
        <source>&amp;Manager Info</source>
        <translation>Infos &amp;gestionnaire</translation>
    </message>
    <message>
        <source>Choose the manager of the node</source>
        <translation>Choisir le gestionnaire du nœud</translation>
    </message>
    <message>
        <source>Manager Info</source>
        <translation>Infos gestionnaire</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save the node to the database</source>
        <translation>Enregistrer le nœud dans la base de données</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmDirectProp</name>
    <message>
        <source>Connection Properties</source>
        <translation>Propriétés de la connexion</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>App&amp;liquer</translation>
    </message>
    <message>
        <source>Use the connection on the Direct tab without saving it</source>
        <translation>Utiliser la connexion dans l’onglet «&#xa0;Direct&#xa0;» sans l’enregistrer</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save the connection to the database</source>
        <translation>Enregistrer la connexion dans la base de données</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmFindElement</name>
    <message>
        <source>Find Element</source>
        <translation>Rechercher un élément</translation>
    </message>
    <message>
        <source>String to be &amp;matched:</source>
        <translation>Texte à re&amp;chercher&#xa0;:</translation>
    </message>
    <message>
        <source>A part of the text of the entries to find, in upper or lower case</source>
        <translation>Une partie du texte des entrées cherchées, en majuscules ou minuscules</translation>
    </message>
    <message>
        <source>String to be matched</source>
        <translation>Texte à rechercher</translation>
    </message>
    <message>
        <source>Number of entries found</source>
        <translation>Nombre d’entrées trouvées</translation>
    </message>
    <message>
        <source>&amp;Next &gt;&gt;</source>
        <translation>&amp;Suivant &gt;&gt;</translation>
    </message>
    <message>
        <source>Show the entries whose text contains the string</source>
        <translation>Afficher les entrées dont le texte contient la chaîne</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Close without a search</source>
        <translation>Fermer sans rechercher</translation>
    </message>
    <message>
        <source>Entries found: %1</source>
        <translation>Entrées trouvées&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>frmLoadProgress</name>
    <message>
        <source>Database Loading</source>
        <translation>Chargement de la base de données</translation>
    </message>
    <message>
        <source>Database loading in progress.</source>
        <translation>Chargement de la base de données en cours.</translation>
    </message>
    <message>
        <source>Loading progress</source>
        <translation>Progression du chargement</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Interrupt the loading; what is loaded stays</source>
        <translation>Interrompre le chargement&#xa0;; ce qui est chargé reste</translation>
    </message>
</context>
<context>
    <name>frmMngrInfo</name>
    <message>
        <source>Manager Info</source>
        <translation>Infos gestionnaire</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Device whose manager operates the node; empty for none</source>
        <translation>Appareil dont le gestionnaire exploite le nœud&#xa0;; vide pour aucun</translation>
    </message>
    <message>
        <source>Device name</source>
        <translation>Nom de l’appareil</translation>
    </message>
    <message>
        <source>Path:</source>
        <translation>Chemin&#xa0;:</translation>
    </message>
    <message>
        <source>Path of the manager, which may be changed for this node</source>
        <translation>Chemin du gestionnaire, qui peut être modifié pour ce nœud</translation>
    </message>
    <message>
        <source>Path of the manager</source>
        <translation>Chemin du gestionnaire</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Use this manager for the node</source>
        <translation>Utiliser ce gestionnaire pour le nœud</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Keep the manager that the node has</source>
        <translation>Garder le gestionnaire actuel du nœud</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Failure in loading data to combo box.</source>
        <translation>Échec du chargement des données de la liste déroulante.</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
</context>
<context>
    <name>frmSaveDirectNode</name>
    <message>
        <source>Save Node</source>
        <translation>Enregistrer le nœud</translation>
    </message>
    <message>
        <source>&amp;Node Name:</source>
        <translation>&amp;Nom du nœud&#xa0;:</translation>
    </message>
    <message>
        <source>Node Name</source>
        <translation>Nom du nœud</translation>
    </message>
    <message>
        <source>Name of the node; Esc brings the former name back</source>
        <translation>Nom du nœud&#xa0;; Échap rétablit l’ancien nom</translation>
    </message>
    <message>
        <source>Node name</source>
        <translation>Nom du nœud</translation>
    </message>
    <message>
        <source>C&amp;onnection Name:</source>
        <translation>N&amp;om de la connexion&#xa0;:</translation>
    </message>
    <message>
        <source>Connection over which the node is reached</source>
        <translation>Connexion par laquelle le nœud est joint</translation>
    </message>
    <message>
        <source>Connection name</source>
        <translation>Nom de la connexion</translation>
    </message>
    <message>
        <source>Connection &amp;Type:</source>
        <translation>&amp;Type de connexion&#xa0;:</translation>
    </message>
    <message>
        <source>Type of the connection</source>
        <translation>Type de la connexion</translation>
    </message>
    <message>
        <source>Connection type</source>
        <translation>Type de connexion</translation>
    </message>
    <message>
        <source>Node C&amp;lass:</source>
        <translation>C&amp;lasse du nœud&#xa0;:</translation>
    </message>
    <message>
        <source>Class of the node</source>
        <translation>Classe du nœud</translation>
    </message>
    <message>
        <source>Node class</source>
        <translation>Classe du nœud</translation>
    </message>
    <message>
        <source>&amp;Manager Info</source>
        <translation>Infos &amp;gestionnaire</translation>
    </message>
    <message>
        <source>Choose the manager of the node</source>
        <translation>Choisir le gestionnaire du nœud</translation>
    </message>
    <message>
        <source>Manager Info</source>
        <translation>Infos gestionnaire</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save the node to the database</source>
        <translation>Enregistrer le nœud dans la base de données</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Unknown node type:%1</source>
        <translation>Type de nœud inconnu&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>frmScan</name>
    <message>
        <source>Scan</source>
        <translation>Balayage</translation>
    </message>
    <message>
        <source>Address Range</source>
        <translation>Plage d’adresses</translation>
    </message>
    <message>
        <source>Begin:</source>
        <translation>Début&#xa0;:</translation>
    </message>
    <message>
        <source>First address to ask, from 0 to 4094</source>
        <translation>Première adresse à interroger, de 0 à 4094</translation>
    </message>
    <message>
        <source>First Address</source>
        <translation>Première adresse</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>Fin&#xa0;:</translation>
    </message>
    <message>
        <source>Last address to ask, from 0 to 4094</source>
        <translation>Dernière adresse à interroger, de 0 à 4094</translation>
    </message>
    <message>
        <source>Last Address</source>
        <translation>Dernière adresse</translation>
    </message>
    <message>
        <source>Timing</source>
        <translation>Temporisation</translation>
    </message>
    <message>
        <source>Retries:</source>
        <translation>Répétitions&#xa0;:</translation>
    </message>
    <message>
        <source>How often a silent node is asked again; empty: as the connection has it</source>
        <translation>Nombre de nouvelles interrogations d’un nœud muet&#xa0;; vide&#xa0;: comme la connexion</translation>
    </message>
    <message>
        <source>Retries</source>
        <translation>Répétitions</translation>
    </message>
    <message>
        <source>Time-out:</source>
        <translation>Délai&#xa0;:</translation>
    </message>
    <message>
        <source>How long to wait for an answer, in milliseconds; empty: as the connection has it</source>
        <translation>Durée d’attente d’une réponse, en millisecondes&#xa0;; vide&#xa0;: comme la connexion</translation>
    </message>
    <message>
        <source>Time-out in Milliseconds</source>
        <translation>Délai en millisecondes</translation>
    </message>
    <message>
        <source>Zelka Mediation Function Bus</source>
        <translation>Bus de la fonction de médiation Zelka</translation>
    </message>
    <message>
        <source>Selected Bus:</source>
        <translation>Bus sélectionné&#xa0;:</translation>
    </message>
    <message>
        <source>Number of the bus to scan</source>
        <translation>Numéro du bus à balayer</translation>
    </message>
    <message>
        <source>Selected Bus</source>
        <translation>Bus sélectionné</translation>
    </message>
    <message>
        <source>Show List</source>
        <translation>Afficher la liste</translation>
    </message>
    <message>
        <source>Ask the far end which buses it serves</source>
        <translation>Demander à l’extrémité distante quels bus elle dessert</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Répéter</translation>
    </message>
    <message>
        <source>Start again at the first address when the last one was asked</source>
        <translation>Recommencer à la première adresse après la dernière</translation>
    </message>
    <message>
        <source>S&amp;tart</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>Start the scan; while it runs, stop it (Esc)</source>
        <translation>Démarrer le balayage&#xa0;; l’arrêter pendant qu’il s’exécute (Échap)</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Progression du balayage</translation>
    </message>
    <message>
        <source>Found Nodes</source>
        <translation>Nœuds trouvés</translation>
    </message>
    <message>
        <source>S&amp;elect</source>
        <translation>&amp;Sélectionner</translation>
    </message>
    <message>
        <source>Take the selected node to the Direct tab</source>
        <translation>Reprendre le nœud sélectionné dans l’onglet «&#xa0;Direct&#xa0;»</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Sélectionner</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Enregistrer...</translation>
    </message>
    <message>
        <source>Save the selected node to the database</source>
        <translation>Enregistrer le nœud sélectionné dans la base de données</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Save &amp;All...</source>
        <translation>&amp;Tout enregistrer...</translation>
    </message>
    <message>
        <source>Save all found nodes to the database</source>
        <translation>Enregistrer tous les nœuds trouvés dans la base de données</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Tout enregistrer</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Close this window</source>
        <translation>Fermer cette fenêtre</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmScanNotSavedList</name>
    <message>
        <source>Scan Results Selection for Database Saving</source>
        <translation>Sélection des résultats du balayage à enregistrer dans la base de données</translation>
    </message>
    <message>
        <source>Select nodes for database saving:</source>
        <translation>Sélectionnez les nœuds à enregistrer&#xa0;:</translation>
    </message>
    <message>
        <source>Node name conflict types:</source>
        <translation>Conflits de noms de nœuds&#xa0;:</translation>
    </message>
    <message>
        <source> Address  Node Name</source>
        <translation> Adresse  Nom du nœud</translation>
    </message>
    <message>
        <source>Name exists in database</source>
        <translation>Nom déjà présent</translation>
    </message>
    <message>
        <source>Name length too long</source>
        <translation>Nom trop long</translation>
    </message>
    <message>
        <source>Nodes that are not saved yet; a double click gives one another name</source>
        <translation>Nœuds qui ne sont pas encore enregistrés&#xa0;; un double-clic en renomme un</translation>
    </message>
    <message>
        <source>Nodes to save</source>
        <translation>Nœuds à enregistrer</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
    <message>
        <source>Select all nodes of the list</source>
        <translation>Sélectionner tous les nœuds de la liste</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>R&amp;ename...</source>
        <translation>&amp;Renommer...</translation>
    </message>
    <message>
        <source>Give the selected nodes other names, one after another</source>
        <translation>Donner l’un après l’autre un autre nom aux nœuds sélectionnés</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save the selected nodes as new ones</source>
        <translation>Enregistrer les nœuds sélectionnés comme nouveaux</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>&amp;Replace/Save</source>
        <translation>Rem&amp;placer/Enregistrer</translation>
    </message>
    <message>
        <source>Save the selected nodes, in the place of those that have their names</source>
        <translation>Enregistrer les nœuds sélectionnés à la place de ceux qui portent leurs noms</translation>
    </message>
    <message>
        <source>Replace or Save</source>
        <translation>Remplacer ou enregistrer</translation>
    </message>
    <message>
        <source>&amp;Manager Info</source>
        <translation>Infos &amp;gestionnaire</translation>
    </message>
    <message>
        <source>Choose the manager of the nodes that are saved from now on</source>
        <translation>Choisir le gestionnaire des nœuds enregistrés à partir de maintenant</translation>
    </message>
    <message>
        <source>Manager Info</source>
        <translation>Infos gestionnaire</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Close; what is saved stays</source>
        <translation>Fermer&#xa0;; ce qui est enregistré reste</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmScanSaveAll</name>
    <message>
        <source>Scan Results: Save All</source>
        <translation>Résultats du balayage&#xa0;: tout enregistrer</translation>
    </message>
    <message>
        <source>How to name nodes in database saving ?</source>
        <translation>Comment nommer les nœuds à l’enregistrement&#xa0;?</translation>
    </message>
    <message>
        <source>Use node identification as node name.</source>
        <translation>Utiliser l’identification du nœud comme nom.</translation>
    </message>
    <message>
        <source>Each node gets the name that it has told in the scan</source>
        <translation>Chaque nœud reçoit le nom qu’il a donné lors du balayage</translation>
    </message>
    <message>
        <source>Generate node name from prefix and the checked items.</source>
        <translation>Former le nom du nœud du préfixe et des éléments cochés.</translation>
    </message>
    <message>
        <source>Prefix, a comma, then the checked items with blanks between them</source>
        <translation>Préfixe, virgule, puis les éléments cochés séparés par des espaces</translation>
    </message>
    <message>
        <source>Prefix:</source>
        <translation>Préfixe&#xa0;:</translation>
    </message>
    <message>
        <source>What every name begins with</source>
        <translation>Début de chaque nom</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Préfixe</translation>
    </message>
    <message>
        <source>Node address.</source>
        <translation>Adresse du nœud.</translation>
    </message>
    <message>
        <source>Node identification.</source>
        <translation>Identification du nœud.</translation>
    </message>
    <message>
        <source>Node type.</source>
        <translation>Type du nœud.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Name the nodes so and choose which to save</source>
        <translation>Nommer ainsi les nœuds et choisir ceux à enregistrer</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Close without saving</source>
        <translation>Fermer sans enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>frmScanSelSaveProgress</name>
    <message>
        <source>Nodes Saving</source>
        <translation>Enregistrement des nœuds</translation>
    </message>
    <message>
        <source>Nodes saving in progress.</source>
        <translation>Enregistrement des nœuds en cours.</translation>
    </message>
    <message>
        <source>Saving progress</source>
        <translation>Progression de l’enregistrement</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Interrupt the saving; what is saved stays</source>
        <translation>Interrompre l’enregistrement&#xa0;; ce qui est enregistré reste</translation>
    </message>
    <message>
        <source>Interrupt Saving</source>
        <translation>Interrompre l’enregistrement</translation>
    </message>
</context>
<context>
    <name>frmSelectTreeNode</name>
    <message>
        <source>Search result</source>
        <translation>Résultat de la recherche</translation>
    </message>
    <message>
        <source>Entries found</source>
        <translation>Entrées trouvées</translation>
    </message>
    <message>
        <source>Entries whose text contains the string; those that are not loaded yet stand in a group of their own</source>
        <translation>Entrées dont le texte contient la chaîne&#xa0;; celles qui ne sont pas encore chargées forment un groupe à part</translation>
    </message>
    <message>
        <source>State of the search</source>
        <translation>État de la recherche</translation>
    </message>
    <message>
        <source>Search progress</source>
        <translation>Progression de la recherche</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Arrêter</translation>
    </message>
    <message>
        <source>End the search in the database; what is found stays</source>
        <translation>Terminer la recherche dans la base de données&#xa0;; ce qui est trouvé reste</translation>
    </message>
    <message>
        <source>&lt;&lt; &amp;Back</source>
        <translation>&lt;&lt; &amp;Retour</translation>
    </message>
    <message>
        <source>Search for another text</source>
        <translation>Rechercher un autre texte</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Terminer</translation>
    </message>
    <message>
        <source>Go to the selected entry</source>
        <translation>Aller à l’entrée sélectionnée</translation>
    </message>
    <message>
        <source>Entries found: %1</source>
        <translation>Entrées trouvées&#xa0;: %1</translation>
    </message>
    <message>
        <source>
What is not loaded yet could not be searched to the end.</source>
        <translation>
La recherche dans ce qui n’est pas encore chargé n’a pas pu être terminée.</translation>
    </message>
    <message>
        <source>
What is not loaded yet was not searched to the end.</source>
        <translation>
La recherche dans ce qui n’est pas encore chargé n’a pas été terminée.</translation>
    </message>
    <message>
        <source>No items found!</source>
        <translation>Aucun élément trouvé&#xa0;!</translation>
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
        <translation>Image de l’application</translation>
    </message>
    <message>
        <source>Version of the registered control</source>
        <translation>Version du contrôle enregistré</translation>
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
        <translation>Fermer cette fenêtre</translation>
    </message>
</context>
<context>
    <name>frmWpProp</name>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Type, press Enter or F2 to change a value</source>
        <translation>Tapez, ou appuyez sur Entrée ou F2, pour modifier une valeur</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Take over the values</source>
        <translation>Reprendre les valeurs</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Close and leave the values as they were</source>
        <translation>Fermer et laisser les valeurs telles quelles</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>Show the help for this window (F1)</source>
        <translation>Afficher l’aide de cette fenêtre (F1)</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Step the value</source>
        <translation>Changer la valeur pas à pas</translation>
    </message>
</context>
</TS>
