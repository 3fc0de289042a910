// What has to hold of the style sheets: faults, and no order or spelling of taste.

export default {
    extends: "stylelint-config-recommended",
    rules: {
        "color-no-invalid-hex": true,
        "declaration-property-value-no-unknown": true,
        // It compares selectors that never meet on one element.
        "no-descending-specificity": null,
    },
};
