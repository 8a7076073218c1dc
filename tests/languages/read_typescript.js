// Prints what kovrel.d.ts declares, as TypeScript's own compiler reads it:
// node read_typescript.js KOVREL_D_TS
"use strict";
const typescript = require("typescript");

const file = process.argv[2];
const source = typescript.createSourceFile(
    file, require("fs").readFileSync(file, "utf8"), typescript.ScriptTarget.ES2015, true);
const kinds = typescript.SyntaxKind;

function help(node) {
    return (node.jsDoc || []).map(comment => comment.comment).join(" ");
}

function parameters(node) {
    return "(" + node.parameters.map(each => each.getText()).join(", ") + ")";
}

function printMember(owner, node) {
    switch (node.kind) {
        case kinds.PropertySignature:
            console.log(`${owner} ${node.modifiers ? "readonly " : ""}${node.name.getText()}: ` +
                        `${node.type.getText()} | ${help(node)}`);
            break;
        case kinds.SetAccessor:
            console.log(`${owner} set ${node.name.getText()}: ` +
                        `${node.parameters[0].type.getText()} | ${help(node)}`);
            break;
        case kinds.MethodSignature:
            console.log(`${owner} ${node.name.getText()}${parameters(node)}: ` +
                        `${node.type.getText()} | ${help(node)}`);
            break;
        case kinds.ConstructSignature:
            console.log(`${owner} new${parameters(node)}: ${node.type.getText()}`);
            break;
        case kinds.EnumMember:
            console.log(`${owner} ${node.name.getText()} ${Number(node.initializer.getText())} | ` +
                        help(node));
            break;
        default:
            throw new Error(kinds[node.kind]);
    }
}

function print(node) {
    if (node.kind === kinds.ModuleDeclaration) {
        node.body.statements.forEach(print);
    } else if (node.kind === kinds.InterfaceDeclaration || node.kind === kinds.EnumDeclaration) {
        console.log(`${node.name.getText()} | ${help(node)}`);
        node.members.forEach(member => printMember(node.name.getText(), member));
    } else {
        throw new Error(kinds[node.kind]);
    }
}

source.statements.forEach(print);
