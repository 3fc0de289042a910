// What has to hold of the page's modules, the browser tests and the scripts: rules that catch faults, none of taste.

import js from "@eslint/js";
import globals from "globals";

/** Markup from a text is how a patient's name becomes a script: elements are made with `h`. */
const noMarkup = ["innerHTML", "outerHTML", "insertAdjacentHTML", "setHTMLUnsafe", "write", "createContextualFragment"].map(
    (property) => ({selector: `MemberExpression[property.name="${property}"]`, message: `${property}: make elements with h().`}));

const faults = {
    "array-callback-return": ["error", {checkForEach: false}],
    "default-case-last": "error",
    eqeqeq: "error",
    "no-constructor-return": "error",
    "no-eval": "error",
    "no-extend-native": "error",
    "no-implied-eval": "error",
    "no-new-func": "error",
    "no-new-wrappers": "error",
    "no-param-reassign": "error",
    "no-promise-executor-return": ["error", {allowVoid: true}],
    "no-return-assign": "error",
    "no-script-url": "error",
    "no-self-compare": "error",
    "no-sequences": "error",
    "no-shadow": "error",
    "no-template-curly-in-string": "error",
    "no-throw-literal": "error",
    "no-unreachable-loop": "error",
    "no-unused-expressions": "error",
    "no-use-before-define": ["error", {functions: false, classes: false, variables: false}],
    "no-useless-assignment": "error",
    "no-useless-return": "error",
    "no-var": "error",
    "prefer-const": "error",
    "prefer-promise-reject-errors": "error",
    radix: "error",
};

export default [
    {ignores: ["**/node_modules/", "build/", "tests/browser/output/"]},
    {linterOptions: {reportUnusedDisableDirectives: "error"}},
    js.configs.recommended,
    {files: ["**/*.js", "**/*.mjs"], rules: faults},
    {
        files: ["web/client/**/*.js"],
        languageOptions: {globals: globals.browser},
        rules: {"no-restricted-syntax": ["error", ...noMarkup]},
    },
    {
        // What a test hands to page.evaluate runs in the browser.
        files: ["tests/browser/**/*.mjs"],
        languageOptions: {globals: {...globals.node, ...globals.browser}},
    },
    {files: ["scripts/**/*.mjs"], languageOptions: {globals: globals.node}},
];
