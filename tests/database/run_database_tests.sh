#!/bin/bash
# Runs the tests that need a database over SQLite behind ODBC, and compares what they have stored with
# what its command line reads: run_database_tests.sh WINE PROGRAM PICTURES
# 77, which counts as not run, without a driver or the command line.
set -euo pipefail
wine=$1 program=$2 pictures=$3

if ! command -v sqlite3 >/dev/null; then
    echo "Not run: there is no sqlite3"
    exit 77
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
database="$folder/clientes.db"

# Every second customer has no name.
sqlite3 "$database" <<'SQL'
CREATE TABLE clientes (id INTEGER PRIMARY KEY, nombre VARCHAR(60), saldo DOUBLE, alta VARCHAR(10));
WITH RECURSIVE numeros(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numeros WHERE n < 100000)
INSERT INTO clientes
SELECT n, CASE n % 2 WHEN 1 THEN 'Íñigo Peña ' || n END, n / 4.0,
    CASE n WHEN 3 THEN '31/02/2024' ELSE '2024-02-29' END
FROM numeros;
CREATE TABLE fotos (nombre VARCHAR(20) PRIMARY KEY, imagen BLOB);
INSERT INTO fotos (nombre) VALUES
    ('photo.jpg'), ('photo.gif'), ('photo.bmp'), ('icon.ico'), ('large.bmp'), ('chunks'), ('empty'), ('null');
SQL

export KOVREL_DATABASE_DRIVER="DRIVER=SQLite3;StepAPI=1;Timeout=100;" KOVREL_DATABASE_FOLDER="$folder"
# The data source that ADO is given.
printf '[kovrel_prueba]\nDriver=SQLite3\nTimeout=100\nDatabase=%s\n' "$database" >"$folder/odbc.ini"
export ODBCINI="$folder/odbc.ini"
"$wine" "$program"

stored() { sqlite3 "$database" "SELECT writefile('$folder/stored', imagen) FROM fotos WHERE nombre = '$1'"; }
for name in photo.jpg photo.gif photo.bmp icon.ico large.bmp; do
    stored "$name" >/dev/null
    cmp "$folder/stored" "$pictures/$name"
done
# Chunks bring a byte more each.
size=$(stat -c %s "$pictures/large.bmp")
[ "$(stored chunks)" = $((size + size / 1024 + 1)) ]
cmp -n "$size" "$folder/stored" "$pictures/large.bmp"
[ "$(sqlite3 "$database" "SELECT typeof(imagen) || length(imagen) FROM fotos WHERE nombre = 'empty'")" = blob0 ]
echo "the pictures in the database are those of the files"
