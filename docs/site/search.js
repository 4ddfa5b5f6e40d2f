// Finds pages and symbols by words, in the index that searchindex.js holds: [title, page, link, text] for each place.
"use strict";

const kShown = 30;

// How well a place fits: a title that is the word, begins with it or has it counts more than the text. 0: a word is missing.
function rank([title, page, , text], words) {
  const name = title.toLowerCase().replace(/\(\)$/, "");
  const all = `${name} ${page} ${text}`.toLowerCase();
  let sum = 0;
  for (const word of words) {
    if (!all.includes(word)) return 0;
    if (name === word) sum += 1000;
    else if (name.startsWith(word)) sum += 100;
    else if (name.includes(word)) sum += 20;
    else sum += 1;
  }
  return sum;
}

// The places that have all of the words, the best first.
function find(index, query) {
  const words = query.toLowerCase().replaceAll("()", "").split(/\s+/).filter(Boolean);
  return index
    .map((place) => ({ place, rank: rank(place, words) }))
    .filter((found) => found.rank > 0)
    .sort((a, b) => b.rank - a.rank || a.place[0].length - b.place[0].length)
    .slice(0, kShown)
    .map((found) => found.place);
}

function itemOf([title, page, link, text]) {
  const item = document.createElement("li");
  const anchor = document.createElement("a");
  anchor.href = link;
  anchor.textContent = title;
  const where = document.createElement("small");
  where.textContent = page === title ? "" : page;
  const start = document.createElement("p");
  start.textContent = text.slice(0, 160);
  item.append(anchor, " ", where, start);
  return item;
}

function install(input, list) {
  const show = () => {
    const items = find(searchIndex, input.value).map(itemOf);
    if (items.length === 0) items.push("Nothing found.");
    list.replaceChildren(...items);
    list.hidden = input.value.trim() === "";
  };
  const leave = () => {
    input.value = "";
    show();
    input.blur();
  };
  input.addEventListener("input", show);
  list.addEventListener("click", (event) => event.target.closest("a") && leave());
  document.addEventListener("keydown", (event) => {
    if (event.key === "/" && document.activeElement !== input) {
      event.preventDefault();
      input.focus();
    } else if (event.key === "Escape") {
      leave();
    } else if (event.key === "Enter" && document.activeElement === input) {
      list.querySelector("a")?.click();
    }
  });
}

if (typeof document === "undefined") {
  module.exports = { find };
} else {
  install(document.getElementById("search"), document.getElementById("results"));
}
