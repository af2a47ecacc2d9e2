SET statement_timeout = 0;
SET lock_timeout = 0;
SET idle_in_transaction_session_timeout = 0;
SET client_encoding = 'UTF8';
SET standard_conforming_strings = on;
SELECT pg_catalog.set_config('search_path', '', false);
SET check_function_bodies = false;
SET xmloption = content;
SET client_min_messages = warning;
SET row_security = off;
CREATE SCHEMA orrelin_kept;
SET default_tablespace = '';
SET default_table_access_method = heap;
CREATE TABLE orrelin_kept."Alarm Table" (
    "record id" integer NOT NULL,
    "Alarm Date" character varying(15) COLLATE pg_catalog."C",
    "Alarm Time" character varying(5) COLLATE pg_catalog."C",
    "Alarm Note" bytea,
    "Alarm Music" character varying(25) COLLATE pg_catalog."C",
    "Music Path" character varying(255) COLLATE pg_catalog."C",
    "Silence" boolean
);
ALTER TABLE orrelin_kept."Alarm Table" ALTER COLUMN "record id" ADD GENERATED ALWAYS AS IDENTITY (
    SEQUENCE NAME orrelin_kept."Alarm Table_record id_seq"
    START WITH 1
    INCREMENT BY 1
    NO MINVALUE
    NO MAXVALUE
    CACHE 1
);
CREATE TABLE orrelin_kept."QMT Table" (
    "record id" integer NOT NULL,
    "Database Date" timestamp(3) without time zone,
    "qmtDate" character varying(15) COLLATE pg_catalog."C",
    "qmtText" bytea,
    "qmtFontName" character varying(40) COLLATE pg_catalog."C",
    "qmtFontSize" real,
    "qmtFontBold" boolean,
    "qmtFontItalic" boolean,
    "qmtFontUnderline" boolean,
    "qmtFontStrikeThru" boolean,
    "qmtFontColor" integer,
    "qmtPadding" bytea
);
ALTER TABLE orrelin_kept."QMT Table" ALTER COLUMN "record id" ADD GENERATED ALWAYS AS IDENTITY (
    SEQUENCE NAME orrelin_kept."QMT Table_record id_seq"
    START WITH 1
    INCREMENT BY 1
    NO MINVALUE
    NO MAXVALUE
    CACHE 1
);
CREATE TABLE orrelin_kept."Recursion Table" (
    "record id" integer NOT NULL,
    "Start Date" character varying(15) COLLATE pg_catalog."C",
    "End Date" character varying(15) COLLATE pg_catalog."C",
    "Frequency" character varying(10) COLLATE pg_catalog."C",
    "Recursion Text" bytea
);
ALTER TABLE orrelin_kept."Recursion Table" ALTER COLUMN "record id" ADD GENERATED ALWAYS AS IDENTITY (
    SEQUENCE NAME orrelin_kept."Recursion Table_record id_seq"
    START WITH 1
    INCREMENT BY 1
    NO MINVALUE
    NO MAXVALUE
    CACHE 1
);
CREATE TABLE orrelin_kept."planner format" (
    version integer NOT NULL,
    id text NOT NULL
);
INSERT INTO orrelin_kept."Alarm Table" OVERRIDING SYSTEM VALUE VALUES (1, '2026/11/22', '23:45', '\x7b5c727466315c616e73695c616e7369637067313235325c64656666307b5c666f6e7474626c7b5c66305c666e696c5c66636861727365743020417269616c3b7d7d0d0a7b5c636f6c6f7274626c203b5c726564305c677265656e305c626c7565303b7d0d0a5c766965776b696e64345c7563315c706172645c6366315c66305c66733136204c65617665206e6f775c7061720d0a7d0d0a', NULL, 'Clock Bell.wav', false);
INSERT INTO orrelin_kept."QMT Table" OVERRIDING SYSTEM VALUE VALUES (1, NULL, '2026/11/22', '\x7b5c727466315c616e73695c616e7369637067313235325c64656666307b5c666f6e7474626c7b5c66305c666e696c5c66636861727365743020417269616c3b7d7d0d0a7b5c636f6c6f7274626c203b5c726564305c677265656e305c626c7565303b7d0d0a5c766965776b696e64345c7563315c706172645c625c6366315c66305c667331362044656e746973745c7061720d0a5c62302061742074656e2c204d5c753235323f686c676173736520335c7061720d0a43686f69725c7061720d0a7d0d0a', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
INSERT INTO orrelin_kept."QMT Table" OVERRIDING SYSTEM VALUE VALUES (2, NULL, '2026/11/Memo1', '\x7b5c727466315c616e73695c616e7369637067313235325c64656666307b5c666f6e7474626c7b5c66305c666e696c5c66636861727365743020417269616c3b7d7d0d0a7b5c636f6c6f7274626c203b5c726564305c677265656e305c626c7565303b7d0d0a5c766965776b696e64345c7563315c706172645c6366315c66305c667331362043616c6c20746865206a6f696e65725c7061720d0a7d0d0a', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
INSERT INTO orrelin_kept."QMT Table" OVERRIDING SYSTEM VALUE VALUES (3, NULL, '2026/11/29', '\x7b5c727466315c616e73695c616e7369637067313235325c64656666307b5c666f6e7474626c7b5c66305c666e696c5c66636861727365743020417269616c3b7d7d0d0a7b5c636f6c6f7274626c203b5c726564305c677265656e305c626c7565303b7d0d0a5c766965776b696e64345c7563315c706172645c6366315c66305c667331362043686f69725c7061720d0a7d0d0a', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
INSERT INTO orrelin_kept."QMT Table" OVERRIDING SYSTEM VALUE VALUES (4, NULL, '2026/11/24', '\x7b5c727466315c616e73695c616e7369637067313235325c64656666307b5c666f6e7474626c7b5c66305c666e696c5c66636861727365743020417269616c3b7d7d0d0a7b5c636f6c6f7274626c203b5c726564305c677265656e305c626c7565303b7d0d0a5c766965776b696e64345c7563315c706172645c6366315c66305c6673313620416c6c206d656574206174206e696e655c7061720d0a7d0d0a', NULL, NULL, NULL, NULL, NULL, NULL, NULL, '\x2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e2e');
INSERT INTO orrelin_kept."Recursion Table" OVERRIDING SYSTEM VALUE VALUES (1, '2026/11/22', '2026/11/30', 'WEEKLY', '\x7b5c727466315c616e73695c616e7369637067313235325c64656666307b5c666f6e7474626c7b5c66305c666e696c5c66636861727365743020417269616c3b7d7d0d0a7b5c636f6c6f7274626c203b5c726564305c677265656e305c626c7565303b7d0d0a5c766965776b696e64345c7563315c706172645c6366315c66305c667331362043686f69725c7061720d0a7d0d0a');
INSERT INTO orrelin_kept."planner format" VALUES (1, '2a8d40c4-f4d7-460c-a60a-8e4baea20357');
SELECT pg_catalog.setval('orrelin_kept."Alarm Table_record id_seq"', 1, true);
SELECT pg_catalog.setval('orrelin_kept."QMT Table_record id_seq"', 4, true);
SELECT pg_catalog.setval('orrelin_kept."Recursion Table_record id_seq"', 1, true);
ALTER TABLE ONLY orrelin_kept."Alarm Table"
    ADD CONSTRAINT "Alarm Table_pkey" PRIMARY KEY ("record id");
ALTER TABLE ONLY orrelin_kept."QMT Table"
    ADD CONSTRAINT "QMT Table_pkey" PRIMARY KEY ("record id");
ALTER TABLE ONLY orrelin_kept."Recursion Table"
    ADD CONSTRAINT "Recursion Table_pkey" PRIMARY KEY ("record id");
CREATE INDEX "AlarmKey" ON orrelin_kept."Alarm Table" USING btree ("Alarm Date" DESC NULLS LAST);
CREATE INDEX "RecurseKey" ON orrelin_kept."Recursion Table" USING btree ("Start Date" DESC NULLS LAST);
CREATE UNIQUE INDEX "qmtPrimaryKey" ON orrelin_kept."QMT Table" USING btree ("qmtDate" DESC NULLS LAST);
