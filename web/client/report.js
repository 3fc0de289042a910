// A report's page: its button prints it.

document.querySelector("#print").addEventListener("click", () => print());
