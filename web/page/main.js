// main.js - starts the calculator of the page.

import { Calculator } from "./calculator.js";

new Calculator().start();
