-- HVX Database, version 1, for SQLite.
--
-- The script can run on a database that has some of these objects: it adds what is missing and changes
-- nothing else. A statement ends at a line ending in ";", a trigger at the line "END;".
--
-- Any program may change connection, node, manager and the definitions with plain SQL: triggers give the
-- record its id and its name key, keep names unique and write the Journal.

-- Numbers of the database as a whole: schema_version; definitions_version, raised by each change of a
-- definition, so that programs know when to read the definitions again.
CREATE TABLE IF NOT EXISTS setting (
    name TEXT PRIMARY KEY,
    value INTEGER NOT NULL
) WITHOUT ROWID;

-- The last record id given. Connections and nodes draw from it together; an id is never used twice, and
-- each write gives its record a new one, by which other programs see that it changed.
CREATE TABLE IF NOT EXISTS record_sequence (
    one INTEGER PRIMARY KEY CHECK (one = 1),
    last_id INTEGER NOT NULL CHECK (last_id BETWEEN 0 AND 2147483647)
);

-- Connections. Nodes refer to row_key, which stays when the id changes.
-- name_key: the name trimmed and case-folded; programs that leave it out get lower(trim(name)).
CREATE TABLE IF NOT EXISTS connection (
    row_key INTEGER PRIMARY KEY,
    id INTEGER UNIQUE,
    name TEXT NOT NULL CHECK (trim(name) <> ''),
    name_key TEXT UNIQUE,
    target TEXT NOT NULL DEFAULT ''
);

-- Node managers. Devices compare without case.
CREATE TABLE IF NOT EXISTS manager (
    manager_index INTEGER PRIMARY KEY AUTOINCREMENT,
    device TEXT NOT NULL UNIQUE COLLATE NOCASE,
    path TEXT NOT NULL DEFAULT '',
    command_text TEXT NOT NULL DEFAULT ''
);

-- Nodes. node_type: the device name, by which the node finds its manager. command_tail: what the node adds
-- to the manager's command line. manager_index: the manager chosen for the node, none as a rule.
CREATE TABLE IF NOT EXISTS node (
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL CHECK (trim(name) <> ''),
    name_key TEXT,
    node_type TEXT NOT NULL DEFAULT '',
    target TEXT NOT NULL DEFAULT '',
    connection_key INTEGER NOT NULL REFERENCES connection (row_key),
    command_tail TEXT NOT NULL DEFAULT '',
    manager_index INTEGER REFERENCES manager (manager_index)
);
CREATE UNIQUE INDEX IF NOT EXISTS node_name ON node (name_key);
CREATE INDEX IF NOT EXISTS node_connection ON node (connection_key);
CREATE INDEX IF NOT EXISTS node_manager ON node (manager_index) WHERE manager_index IS NOT NULL;

-- Texts that belong to a name, by kind ("Parent", "NodeWP"). They outlive a node that is deleted to be saved
-- anew.
CREATE TABLE IF NOT EXISTS users_text (
    kind TEXT NOT NULL,
    name_key TEXT NOT NULL,
    users TEXT NOT NULL,
    PRIMARY KEY (kind, name_key)
) WITHOUT ROWID;

-- Who may scan and who may edit. The user "*" is everyone without a row.
CREATE TABLE IF NOT EXISTS user_rights (
    user_name TEXT PRIMARY KEY,
    may_scan INTEGER NOT NULL CHECK (may_scan IN (0, 1)),
    may_edit INTEGER NOT NULL CHECK (may_edit IN (0, 1))
) WITHOUT ROWID;

-- What changed, in order. record_type: 20 node deleted, 21 connection deleted, 30 node new, 31 connection new,
-- 40 node changed, 41 connection changed. text1: name, number: record id. A renaming is a deletion of the old
-- name and a change under the new one. changed: seconds since 1970.
-- Record 1 holds the version text; its type is 0 once records were removed.
CREATE TABLE IF NOT EXISTS journal (
    id INTEGER PRIMARY KEY CHECK (id BETWEEN 1 AND 2147483647),
    record_type INTEGER NOT NULL,
    text1 TEXT NOT NULL DEFAULT '',
    number INTEGER NOT NULL DEFAULT 0,
    text2 TEXT NOT NULL DEFAULT '',
    changed INTEGER NOT NULL DEFAULT (unixepoch())
);

-- Present while someone needs the database alone. heartbeat: milliseconds since 1970.
CREATE TABLE IF NOT EXISTS cam_lock (
    one INTEGER PRIMARY KEY CHECK (one = 1),
    token TEXT NOT NULL,
    owner TEXT NOT NULL,
    host TEXT NOT NULL,
    process INTEGER NOT NULL,
    heartbeat INTEGER NOT NULL
);

-- Definitions --------------------------------------------------------------------------------------------

-- Connection types; the last one is "Unknown" and has no hops.
CREATE TABLE IF NOT EXISTS con_type (
    id INTEGER PRIMARY KEY,
    short_name TEXT NOT NULL,
    long_name TEXT NOT NULL
);
CREATE TABLE IF NOT EXISTS con_type_hop (
    type_id INTEGER NOT NULL,
    position INTEGER NOT NULL,
    waypoint TEXT NOT NULL,
    mandatory INTEGER NOT NULL,
    PRIMARY KEY (type_id, position)
);
CREATE TABLE IF NOT EXISTS node_type (
    id INTEGER PRIMARY KEY,
    short_name TEXT NOT NULL,
    long_name TEXT NOT NULL
);
CREATE TABLE IF NOT EXISTS node_type_waypoint (
    type_id INTEGER NOT NULL,
    position INTEGER NOT NULL,
    waypoint TEXT NOT NULL,
    mandatory INTEGER NOT NULL,
    PRIMARY KEY (type_id, position)
);
CREATE TABLE IF NOT EXISTS waypoint (
    name TEXT PRIMARY KEY,
    position INTEGER NOT NULL,
    long_name TEXT NOT NULL
);
-- kind: 1 free, 2 text of at most text_length characters, 3 whole number from low to high, 4 one of
-- parameter_value. requirement: 0 optional, 1 mandatory, 2 and above a group of which one has a value.
CREATE TABLE IF NOT EXISTS parameter (
    waypoint TEXT NOT NULL,
    position INTEGER NOT NULL,
    keyword TEXT NOT NULL,
    long_name TEXT NOT NULL,
    requirement INTEGER NOT NULL,
    default_value TEXT NOT NULL,
    kind INTEGER NOT NULL,
    text_length INTEGER NOT NULL DEFAULT 0,
    low INTEGER NOT NULL DEFAULT 0,
    high INTEGER NOT NULL DEFAULT 0,
    PRIMARY KEY (waypoint, position)
);
CREATE TABLE IF NOT EXISTS parameter_value (
    waypoint TEXT NOT NULL,
    keyword TEXT NOT NULL,
    position INTEGER NOT NULL,
    value TEXT NOT NULL,
    PRIMARY KEY (waypoint, keyword, position)
);

-- Names --------------------------------------------------------------------------------------------------
-- One namespace over both tables: each table has a unique index, and a write looks into the other's.

CREATE TRIGGER IF NOT EXISTS connection_name_insert BEFORE INSERT ON connection
WHEN EXISTS (SELECT 1 FROM node WHERE name_key = NEW.name_key)
BEGIN
    SELECT RAISE(ABORT, 'The name is taken by a node.');
END;
CREATE TRIGGER IF NOT EXISTS connection_name_update BEFORE UPDATE OF name_key ON connection
WHEN EXISTS (SELECT 1 FROM node WHERE name_key = NEW.name_key)
BEGIN
    SELECT RAISE(ABORT, 'The name is taken by a node.');
END;
CREATE TRIGGER IF NOT EXISTS node_name_insert BEFORE INSERT ON node
WHEN EXISTS (SELECT 1 FROM connection WHERE name_key = NEW.name_key)
BEGIN
    SELECT RAISE(ABORT, 'The name is taken by a connection.');
END;
CREATE TRIGGER IF NOT EXISTS node_name_update BEFORE UPDATE OF name_key ON node
WHEN EXISTS (SELECT 1 FROM connection WHERE name_key = NEW.name_key)
BEGIN
    SELECT RAISE(ABORT, 'The name is taken by a connection.');
END;

-- Ids and Journal ------------------------------------------------------------------------------------------
-- The updates inside these triggers set id and name_key only, which no AFTER trigger watches.

CREATE TRIGGER IF NOT EXISTS connection_insert AFTER INSERT ON connection
BEGIN
    UPDATE record_sequence SET last_id = last_id + 1;
    UPDATE connection
       SET id = (SELECT last_id FROM record_sequence),
           name_key = coalesce(name_key, lower(trim(name)))
     WHERE row_key = NEW.row_key;
    INSERT INTO journal (record_type, text1, number)
    VALUES (31, NEW.name, (SELECT last_id FROM record_sequence));
END;

-- A new name with the old key means that the writer left the key to us, unless only the case changed.
CREATE TRIGGER IF NOT EXISTS connection_update AFTER UPDATE OF row_key, name, target ON connection
BEGIN
    INSERT INTO journal (record_type, text1, number)
    SELECT 21, OLD.name, OLD.id WHERE NEW.name <> OLD.name;
    UPDATE record_sequence SET last_id = last_id + 1;
    UPDATE connection
       SET id = (SELECT last_id FROM record_sequence),
           name_key = CASE WHEN NEW.name_key IS OLD.name_key AND lower(trim(NEW.name)) <> lower(trim(OLD.name))
                           THEN lower(trim(NEW.name))
                           ELSE coalesce(NEW.name_key, lower(trim(NEW.name))) END
     WHERE row_key = NEW.row_key;
    INSERT INTO journal (record_type, text1, number)
    VALUES (41, NEW.name, (SELECT last_id FROM record_sequence));
END;

-- The nodes of a connection go before it, whatever the program does about foreign keys.
CREATE TRIGGER IF NOT EXISTS connection_delete_nodes BEFORE DELETE ON connection
BEGIN
    DELETE FROM node WHERE connection_key = OLD.row_key;
END;
CREATE TRIGGER IF NOT EXISTS connection_delete AFTER DELETE ON connection
BEGIN
    INSERT INTO journal (record_type, text1, number) VALUES (21, OLD.name, OLD.id);
END;

-- A writer that gives the next id itself spares the row its move.
CREATE TRIGGER IF NOT EXISTS node_insert AFTER INSERT ON node
BEGIN
    UPDATE record_sequence SET last_id = last_id + 1;
    UPDATE node
       SET id = (SELECT last_id FROM record_sequence),
           name_key = coalesce(name_key, lower(trim(name)))
     WHERE id = NEW.id
       AND (NEW.name_key IS NULL OR NEW.id <> (SELECT last_id FROM record_sequence));
    INSERT INTO journal (record_type, text1, number)
    VALUES (30, NEW.name, (SELECT last_id FROM record_sequence));
END;

CREATE TRIGGER IF NOT EXISTS node_update
AFTER UPDATE OF name, node_type, target, connection_key, command_tail, manager_index ON node
BEGIN
    INSERT INTO journal (record_type, text1, number)
    SELECT 20, OLD.name, OLD.id WHERE NEW.name <> OLD.name;
    UPDATE record_sequence SET last_id = last_id + 1;
    UPDATE node
       SET id = (SELECT last_id FROM record_sequence),
           name_key = CASE WHEN NEW.name_key IS OLD.name_key AND lower(trim(NEW.name)) <> lower(trim(OLD.name))
                           THEN lower(trim(NEW.name))
                           ELSE coalesce(NEW.name_key, lower(trim(NEW.name))) END
     WHERE id = NEW.id;
    INSERT INTO journal (record_type, text1, number)
    VALUES (40, NEW.name, (SELECT last_id FROM record_sequence));
END;

CREATE TRIGGER IF NOT EXISTS node_delete AFTER DELETE ON node
BEGIN
    INSERT INTO journal (record_type, text1, number) VALUES (20, OLD.name, OLD.id);
END;

-- Definitions version --------------------------------------------------------------------------------------

CREATE TRIGGER IF NOT EXISTS con_type_insert_version AFTER INSERT ON con_type
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS con_type_update_version AFTER UPDATE ON con_type
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS con_type_delete_version AFTER DELETE ON con_type
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS con_type_hop_insert_version AFTER INSERT ON con_type_hop
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS con_type_hop_update_version AFTER UPDATE ON con_type_hop
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS con_type_hop_delete_version AFTER DELETE ON con_type_hop
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS node_type_insert_version AFTER INSERT ON node_type
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS node_type_update_version AFTER UPDATE ON node_type
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS node_type_delete_version AFTER DELETE ON node_type
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS node_type_waypoint_insert_version AFTER INSERT ON node_type_waypoint
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS node_type_waypoint_update_version AFTER UPDATE ON node_type_waypoint
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS node_type_waypoint_delete_version AFTER DELETE ON node_type_waypoint
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS waypoint_insert_version AFTER INSERT ON waypoint
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS waypoint_update_version AFTER UPDATE ON waypoint
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS waypoint_delete_version AFTER DELETE ON waypoint
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS parameter_insert_version AFTER INSERT ON parameter
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS parameter_update_version AFTER UPDATE ON parameter
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS parameter_delete_version AFTER DELETE ON parameter
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS parameter_value_insert_version AFTER INSERT ON parameter_value
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS parameter_value_update_version AFTER UPDATE ON parameter_value
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;
CREATE TRIGGER IF NOT EXISTS parameter_value_delete_version AFTER DELETE ON parameter_value
BEGIN
    UPDATE setting SET value = value + 1 WHERE name = 'definitions_version';
END;

-- First rows -----------------------------------------------------------------------------------------------
-- Where tables were lost: ids go on behind those in use, and a Journal that begins anew among records says
-- that records are missing.

INSERT OR IGNORE INTO setting VALUES ('schema_version', 1);
INSERT OR IGNORE INTO setting VALUES ('definitions_version', 1);
INSERT OR IGNORE INTO record_sequence
SELECT 1, max(coalesce((SELECT max(id) FROM connection), 0), coalesce((SELECT max(id) FROM node), 0));
INSERT OR IGNORE INTO journal (id, record_type, text1)
SELECT 1, NOT EXISTS (SELECT 1 FROM connection) AND NOT EXISTS (SELECT 1 FROM node), 'HVX R4.2';
INSERT OR IGNORE INTO user_rights VALUES ('*', 1, 0);
