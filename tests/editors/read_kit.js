// Reads the kit as VS Code does: node read_kit.js KIT MODULES <LINES
//
// LINES is a JSON array of strings. Prints two arrays: for each line, the scopes
// of each character, and what the pattern of the problem matcher captures in
// it, or null.

"use strict";

const fs = require("fs");
const path = require("path");

const [kit, modules] = process.argv.slice(2).map((folder) => path.resolve(folder));
const oniguruma = require(path.join(modules, "vscode-oniguruma"));
const textmate = require(path.join(modules, "vscode-textmate"));
const contributes = JSON.parse(fs.readFileSync(path.join(kit, "package.json"))).contributes;

async function readGrammar() {
    const wasm = fs.readFileSync(path.join(modules, "vscode-oniguruma", "release", "onig.wasm"));
    await oniguruma.loadWASM(wasm);
    const [declared] = contributes.grammars;
    const file = path.join(kit, declared.path);
    const registry = new textmate.Registry({
        onigLib: Promise.resolve({
            createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
            createOnigString: (text) => new oniguruma.OnigString(text),
        }),
        loadGrammar: async (scope) => scope === declared.scopeName
            ? textmate.parseRawGrammar(fs.readFileSync(file, "utf8"), file) : null,
    });
    return registry.loadGrammar(declared.scopeName);
}

// The scope of each character without that of the language, "" if there is no other.
function scopes(lines, grammar) {
    let state = textmate.INITIAL;
    return lines.map((line) => {
        const read = grammar.tokenizeLine(line, state);
        state = read.ruleStack;
        return read.tokens.flatMap((token) => Array(Math.min(token.endIndex, line.length) -
            token.startIndex).fill(token.scopes.slice(1).join(" ")));
    });
}

function problems(lines, pattern) {
    const regexp = new RegExp(pattern.regexp);
    return lines.map((line) => {
        const found = regexp.exec(line);
        const captured = (name) => found[pattern[name]] ?? null;
        return found && Object.fromEntries(Object.keys(pattern).filter((name) => name !== "regexp")
            .map((name) => [name, captured(name)]));
    });
}

readGrammar().then((grammar) => {
    const lines = JSON.parse(fs.readFileSync(0, "utf8"));
    const [matcher] = contributes.problemMatchers;
    process.stdout.write(JSON.stringify([scopes(lines, grammar), problems(lines, matcher.pattern)]));
});
