// Runs the SQL of the standard input in DuckDB and prints its rows as JSON.
import {createRequire} from "node:module";
import {readFileSync} from "node:fs";

// The package is in a folder of the build.
const {DuckDBInstance} = createRequire(process.argv[2] + "/")("@duckdb/node-api");
const connection = await (await DuckDBInstance.create()).connect();
const reader = await connection.runAndReadAll(readFileSync(0, "utf8"));
console.log(JSON.stringify(reader.getRowsJson()));
